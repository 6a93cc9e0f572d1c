#pragma once

#include <QString>
#include <QVariant>

// The user-defaults store and the keys that the program owns in it.
namespace Defaults {

inline constexpr QStringView shortcutKey = u"shortcut";
inline constexpr QStringView lastFolderKey = u"ultimaCarpeta";
inline constexpr QStringView shapeTipKey = u"pistaFiguras";
inline constexpr QStringView keepStrokesKey = u"guardarTrazos";
inline constexpr QStringView recentColorsKey = u"coloresRecientes";
inline constexpr QStringView updateAddressKey = u"urlActualizacion";
inline constexpr QStringView updateMarkKey = u"actualizacionEnCurso";
inline constexpr QStringView putOffKey = u"actualizacionAplazada";

// Invalid when nothing is stored.
[[nodiscard]] QVariant value(QStringView key);
// Written to disk at once. A store that cannot be written loses the value.
void setValue(QStringView key, const QVariant &value);
void remove(QStringView key);

} // namespace Defaults
