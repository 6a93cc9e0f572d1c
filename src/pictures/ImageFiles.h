#pragma once

#include <QByteArray>
#include <QImage>

#include <optional>

// Encodes pictures as image files in memory. Scale is device pixels per point and
// sets the density: 72 points per inch. Pictures are treated as opaque, whatever
// their alpha says. The result is absent for a null picture and when an encoder
// fails.
namespace ImageFiles {

// Encodes as RGB, 8 bits per channel, marked as sRGB. Uses every core.
[[nodiscard]] std::optional<QByteArray> png(const QImage &picture, double scale);
// Encodes as RGB, 8 bits per channel, uncompressed.
[[nodiscard]] std::optional<QByteArray> tiff(const QImage &picture, double scale);

struct Both {
    QByteArray png;
    QByteArray tiff;
};

// Encodes both formats in parallel and returns when both are ready.
[[nodiscard]] std::optional<Both> both(const QImage &picture, double scale);

} // namespace ImageFiles
