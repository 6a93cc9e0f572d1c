#pragma once

#include <QImage>
#include <QString>

#include <optional>

// Checks what the modes are given.
namespace Inputs {

// Returns the picture as a frozen screen; absent after a sentence on standard
// error.
[[nodiscard]] std::optional<QImage> screenFrom(const QString &picture);

// Returns whether files can be written into the folder, which is created if needed.
// If not, a sentence has gone to standard error.
[[nodiscard]] bool folderReady(const QString &folder);

} // namespace Inputs
