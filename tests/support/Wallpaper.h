#pragma once

#include <QImage>
#include <QPainter>

// A picture that tells when it has been turned, mirrored, cut or smoothed: another
// colour in every corner and noise between them.
namespace Wallpaper {

inline constexpr QRgb corners[] = {qRgb(200, 0, 0), qRgb(0, 200, 0), qRgb(0, 0, 200), qRgb(200, 200, 0)};

inline QImage make(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x * 7, y * 11, x * y));
    QPainter painter(&image);
    const QSize part = size / 5;
    const int right = size.width() - part.width();
    const int bottom = size.height() - part.height();
    painter.fillRect(QRect({0, 0}, part), corners[0]);
    painter.fillRect(QRect({right, 0}, part), corners[1]);
    painter.fillRect(QRect({0, bottom}, part), corners[2]);
    painter.fillRect(QRect({right, bottom}, part), corners[3]);
    return image;
}

// Whether every corner has its colour.
inline bool isUpright(const QImage &image)
{
    constexpr int inset = 20;
    const int right = image.width() - inset;
    const int bottom = image.height() - inset;
    return !image.isNull() && image.pixel(inset, inset) == corners[0]
           && image.pixel(right, inset) == corners[1] && image.pixel(inset, bottom) == corners[2]
           && image.pixel(right, bottom) == corners[3];
}

} // namespace Wallpaper
