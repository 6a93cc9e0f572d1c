#pragma once

#include "base/ScreenShot.h"

#include <QImage>

// Returns a picture in which every pixel tells where it is. As some compositors leave
// it, nothing stands where the opacity would be.
inline QImage pattern(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = qRgba(x & 0xff, y & 0xff, ((x >> 8) << 4 | (y >> 8)) & 0xff, 0);
    }
    return image;
}

// Returns a screen of so many points that shows the pattern.
inline ScreenShot patternShot(QSizeF points, double scale, QScreen *screen = nullptr)
{
    const QSize pixels = (points * scale).toSize();
    return {screen, pattern(pixels), scale, QSizeF(pixels) / scale};
}
