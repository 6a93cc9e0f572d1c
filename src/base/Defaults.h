#pragma once

#include <QString>
#include <QVariant>

// Stores the user's defaults under the keys that the program owns.
namespace Defaults {

inline constexpr QStringView shortcutKey = u"shortcut";
inline constexpr QStringView lastFolderKey = u"ultimaCarpeta";
inline constexpr QStringView shapeTipKey = u"pistaFiguras";
inline constexpr QStringView keepStrokesKey = u"guardarTrazos";
inline constexpr QStringView recentColorsKey = u"coloresRecientes";
inline constexpr QStringView updateAddressKey = u"urlActualizacion";
inline constexpr QStringView updateMarkKey = u"actualizacionEnCurso";
inline constexpr QStringView putOffKey = u"actualizacionAplazada";

// Returns an invalid value when nothing is stored.
[[nodiscard]] QVariant value(QStringView key);
// Writes the value to disk at once. If the store cannot be written, the value is
// lost.
void setValue(QStringView key, const QVariant &value);
void remove(QStringView key);

} // namespace Defaults
