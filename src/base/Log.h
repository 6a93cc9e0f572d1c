#pragma once

#include <QDateTime>
#include <QString>

// The program's diary: one dated line a message, in Spanish, in
// "Library/Logs/Vellumora.log" under the home folder. It is never trimmed, and
// without that folder the lines are lost.
namespace Log {

void write(const QString &message);

[[nodiscard]] QString path();
// The moment in UTC with its offset, a blank and the message, without line end.
[[nodiscard]] QString line(const QDateTime &at, const QString &message);

} // namespace Log
