#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// Hands a finished picture to whoever asked for it on the command line.
namespace PictureOutput {

// Writes the bytes to the file, or to standard output where it is "-". A file is there
// as a whole or as it was before; pipes and devices are written to. Returns
// why it did not work, if it did not. A reader that goes away is such a reason, and
// ends the process no longer.
[[nodiscard]] std::optional<QString> write(const QString &file, const QByteArray &bytes);

} // namespace PictureOutput
