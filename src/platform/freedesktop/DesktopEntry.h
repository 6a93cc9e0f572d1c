#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

// What desktops read in the files (".desktop") by which they start programs. Only
// the main group counts.
namespace DesktopEntry {

[[nodiscard]] std::optional<QString> value(const QByteArray &entry, QByteArrayView key);

// The entry with that line in its main group, in the place of another of the key.
[[nodiscard]] QByteArray withLine(const QByteArray &entry, const QByteArray &key, const QByteArray &value);

// The words of an Exec key: quotes and escapes resolved, without what stands for
// files. Empty when the quotes do not match.
[[nodiscard]] QStringList words(const QString &exec);

// The canonical path of what the entry starts, also by way of env; empty when
// there is no such program.
[[nodiscard]] QString program(const QByteArray &entry);

// Whether the desktop that runs starts it at login, provided the program is there.
[[nodiscard]] bool switchedOn(const QByteArray &entry);

} // namespace DesktopEntry
