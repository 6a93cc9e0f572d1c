#pragma once

#include <QString>

// Appends one line of UTF-8 text to a file, which is created if it does not exist;
// its folder is not. Failures are silent: a diagnostic that cannot be written is
// not worth disturbing anyone.
void appendLine(const QString &path, const QString &line);
