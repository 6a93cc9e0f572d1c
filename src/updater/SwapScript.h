#pragma once

#include "platform/UpdateInstaller.h"

#include <QString>

#include <optional>

// The script that puts the new bundle in the place of the old one once the
// program has gone.
namespace SwapScript {

struct Paths {
    QString app;    // the bundle
    QString aside;  // the name beside it that it gets
    QString staged; // its successor, on any file system
    QString work;   // the folder to remove at the end
};

// The first character that the script's double quotes would not leave as it is;
// absent when the path can stand between them.
[[nodiscard]] std::optional<QChar> unquotable(const QString &path);

// The bundle's path with ".anterior" at its end, and a number behind it when
// nobody could remove what has that name.
[[nodiscard]] QString aside(const QString &app);

// Killed at any moment it leaves a whole bundle at app, the old one or the new
// one. The old one stays aside until the new one removes it. A second script
// that runs at the same time ends without having touched anything.
[[nodiscard]] QString text(const Paths &paths, qint64 pid, const SwapCommands &commands);

} // namespace SwapScript
