#pragma once

#include <QByteArray>
#include <QImage>

#include <optional>

namespace TiffFile {

// Encodes a picture whose pixels are QRgb words as an uncompressed RGB file. Absent
// when libtiff fails.
[[nodiscard]] std::optional<QByteArray> write(const QImage &picture, double dotsPerInch);

} // namespace TiffFile
