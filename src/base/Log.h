#pragma once

#include <QDateTime>
#include <QString>

// Keeps the program's diary, one dated line in Spanish per message, in
// "Library/Logs/Vellumora.log" under the home folder. The file is never trimmed; if
// that folder does not exist, the messages are lost.
namespace Log {

void write(const QString &message);

[[nodiscard]] QString path();
// Returns the moment in UTC with its offset, as in "2026-01-31 09:15:02 +0000".
[[nodiscard]] QString date(const QDateTime &at);
// Returns the date, a space and the message, without a line end.
[[nodiscard]] QString line(const QDateTime &at, const QString &message);

} // namespace Log
