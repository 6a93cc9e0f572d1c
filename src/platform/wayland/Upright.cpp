#include "platform/wayland/Upright.h"

#include <QTransform>

QImage upright(QImage image, wl_output_transform transform, Rows rows)
{
    constexpr int quarterTurns = 3; // the bits that count them
    if (rows == Rows::bottomFirst)
        image = std::move(image).mirrored(false, true);
    if (const int turns = transform & quarterTurns; turns != 0)
        image = image.transformed(QTransform().rotate(90 * turns));
    if (transform & WL_OUTPUT_TRANSFORM_FLIPPED)
        image = std::move(image).mirrored(true, false);
    return image.format() == QImage::Format_RGB32 ? image
                                                  : std::move(image).convertToFormat(QImage::Format_RGB32);
}
