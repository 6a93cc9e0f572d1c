#pragma once

#include <QDateTime>
#include <QString>

// The program's diary: one dated line a message, in Spanish, in
// "Library/Logs/Vellumora.log" under the home folder. It is never trimmed, and
// without that folder the lines are lost.
namespace Log {

void write(const QString &message);

[[nodiscard]] QString path();
// A moment in UTC with its offset, as in "2026-01-31 09:15:02 +0000".
[[nodiscard]] QString date(const QDateTime &at);
// The date, a blank and the message, without line end.
[[nodiscard]] QString line(const QDateTime &at, const QString &message);

} // namespace Log
