#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

// Reads desktop entries (".desktop" files), by which desktops start programs. Only
// the main group counts.
namespace DesktopEntry {

// Returns the value of a key with its escapes resolved; absent without the key.
[[nodiscard]] std::optional<QString> value(const QByteArray &entry, QByteArrayView key);

// Returns the entry with this line in its main group, in place of another line with
// the same key.
[[nodiscard]] QByteArray withLine(const QByteArray &entry, const QByteArray &key, const QByteArray &value);

// Returns the words of an Exec key: quotes and escapes resolved, placeholders for
// files left out. Empty when the quotes do not match.
[[nodiscard]] QStringList words(const QString &exec);

// Returns the canonical path of the program that the entry starts, directly or
// through env; empty when there is no such program.
[[nodiscard]] QString program(const QByteArray &entry);

// Returns whether the running desktop would start the entry at login, provided its
// program exists.
[[nodiscard]] bool switchedOn(const QByteArray &entry);

} // namespace DesktopEntry
