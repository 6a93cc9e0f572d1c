#pragma once

#include <QImage>
#include <QString>

#include <optional>

// What the modes are given.
namespace Inputs {

// The picture as a frozen screen; absent after a sentence on standard error.
[[nodiscard]] std::optional<QImage> screenFrom(const QString &picture);

// Whether files can be written into the folder, which is made if need be; if
// not, after a sentence on standard error.
[[nodiscard]] bool folderReady(const QString &folder);

} // namespace Inputs
