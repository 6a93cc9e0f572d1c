#pragma once

#include <QString>

// Appends one line of UTF-8 text to a file and creates the file when it is not
// there. Its folder is not made. Never fails out loud: a diagnostic that cannot
// be written is not worth disturbing anyone.
void appendLine(const QString &path, const QString &line);
