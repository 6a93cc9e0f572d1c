#pragma once

#include <QByteArray>
#include <QImage>

#include <optional>

// Pictures as the bytes of image files. Scale is device pixels per point and
// becomes the density: 72 points an inch. A picture is taken as opaque,
// whatever its alpha says. Nothing comes back for a null picture and when
// memory for the encoder is refused.
namespace ImageFiles {

// RGB, 8 bits a channel, marked as sRGB. Uses every core.
[[nodiscard]] std::optional<QByteArray> png(const QImage &picture, double scale);
// RGB, 8 bits a channel, uncompressed.
[[nodiscard]] std::optional<QByteArray> tiff(const QImage &picture, double scale);

struct Both {
    QByteArray png;
    QByteArray tiff;
};

// Both side by side; returns when both are ready.
[[nodiscard]] std::optional<Both> both(const QImage &picture, double scale);

} // namespace ImageFiles
