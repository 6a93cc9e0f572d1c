#include "platform/wayland/Upright.h"

#include <QTransform>

namespace {

// Compositors leave anything in the byte of the opacity. Qt copies it as it is, also into
// a window that may be translucent.
void makeOpaque(QImage &image)
{
    constexpr QRgb opaque = 0xff000000;
    for (int y = 0; y < image.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            row[x] |= opaque;
    }
}

} // namespace

QImage upright(QImage image, wl_output_transform transform, Rows rows)
{
    constexpr int quarterTurns = 3; // the bits that count them
    if (rows == Rows::bottomFirst)
        image = std::move(image).mirrored(false, true);
    if (const int turns = transform & quarterTurns; turns != 0)
        image = image.transformed(QTransform().rotate(90 * turns));
    if (transform & WL_OUTPUT_TRANSFORM_FLIPPED)
        image = std::move(image).mirrored(true, false);
    if (image.format() != QImage::Format_RGB32)
        return std::move(image).convertToFormat(QImage::Format_RGB32);
    makeOpaque(image);
    return image;
}
