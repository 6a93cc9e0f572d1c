#pragma once

#include <QByteArray>
#include <QImage>

#include <optional>

namespace TiffFile {

// An uncompressed RGB file from a picture whose pixels are QRgb words.
[[nodiscard]] std::optional<QByteArray> write(const QImage &picture, double dotsPerInch);

} // namespace TiffFile
