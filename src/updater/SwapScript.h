#pragma once

#include "platform/UpdateInstaller.h"

#include <QString>

#include <optional>

// Writes the shell script that replaces the old bundle with the new one once the
// program has ended.
namespace SwapScript {

struct Paths {
    QString app;    // the bundle
    QString aside;  // the new name of the old bundle, beside it
    QString staged; // the new bundle, on any file system
    QString work;   // the folder to remove at the end
};

// Returns the first character of the path that is special between the shell's
// double quotes; absent when the path can stand between them.
[[nodiscard]] std::optional<QChar> unquotable(const QString &path);

// Returns the bundle's path followed by ".anterior", and by a number if that name
// is taken.
[[nodiscard]] QString aside(const QString &app);

// Returns the text of the script. Killed at any moment, the script leaves a
// complete bundle at app, the old one or the new one. The old one stays aside until
// the new one removes it. A second script that runs at the same time ends without
// touching anything.
[[nodiscard]] QString text(const Paths &paths, qint64 pid, const SwapCommands &commands);

} // namespace SwapScript
