#pragma once

#include <QDateTime>
#include <QString>

// Keeps the program's diary "Vellumora.log", one dated line in Spanish per message.
// The file is never trimmed; where it cannot be written, the messages are lost.
namespace Log {

void write(const QString &message);

// Names the folder for logs on this system; it is made, for the user alone, when it
// is first needed.
void keepIn(const QString &folder);
// Returns the folder for logs: "Library/Logs" under the home folder where that
// exists, else the one of this system; empty when none was named.
[[nodiscard]] QString folder();
// Adds a line to a file of that folder.
void append(const QString &fileName, const QString &line);

[[nodiscard]] QString path();
// Returns the moment in UTC with its offset, as in "2026-01-31 09:15:02 +0000".
[[nodiscard]] QString date(const QDateTime &at);
// Returns the date, a space and the message, without a line end.
[[nodiscard]] QString line(const QDateTime &at, const QString &message);

} // namespace Log
