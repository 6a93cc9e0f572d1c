#pragma once

#include "platform/UpdateInstaller.h"

#include <QString>

// The script that puts the new bundle in the place of the old one once the
// program has gone.
namespace SwapScript {

struct Paths {
    QString app;    // the bundle
    QString staged; // its successor, on any file system
    QString work;   // the folder to remove at the end
};

// Whether the path can stand between the script's double quotes as it is.
[[nodiscard]] bool canQuote(const QString &path);

// Killed at any moment it leaves a whole bundle at app, the old one or the new
// one. What it leaves beside it, app with ".anterior" at its end, goes with the
// next update.
[[nodiscard]] QString text(const Paths &paths, qint64 pid, const SwapCommands &commands);

} // namespace SwapScript
