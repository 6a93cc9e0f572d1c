#include "platform/wayland/ScreenScale.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace ScreenScale {

double of(QSize pixels, QSize points, double ratio)
{
    constexpr double steps = 120; // to a whole, in which compositors scale
    // Where screens are laid out in pixels, a window still has points.
    if (pixels == points || pixels.isEmpty() || points.isEmpty())
        return ratio;
    const bool wide = points.width() > points.height();
    const double rough
        = wide ? double(pixels.width()) / points.width() : double(pixels.height()) / points.height();
    // The number of points has been rounded, so the quotient is not quite the scale.
    const double stepped = std::round(rough * steps) / steps;
    const auto fits = [&](int inPixels, int inPoints) { return std::abs(inPixels / stepped - inPoints) < 1; };
    const bool exact = fits(pixels.width(), points.width()) && fits(pixels.height(), points.height());
    return exact ? stepped : rough;
}

ScreenShot shot(QScreen &screen, const QImage &image)
{
    const double scale = of(image.size(), screen.geometry().size(), screen.devicePixelRatio());
    return {&screen, image, scale, QSizeF(image.size()) / scale, screen.geometry()};
}

std::vector<QRect> pixelsOn(const ScreenShot &shot, const std::vector<QRectF> &rects)
{
    std::vector<QRect> all;
    for (const QRectF &rect : rects) {
        const QPoint first = (rect.topLeft() * shot.scale).toPoint();
        const QPoint last = (rect.bottomRight() * shot.scale).toPoint() - QPoint(1, 1);
        if (const QRect part = QRect(first, last) & shot.image.rect(); !part.isEmpty())
            all.push_back(part);
    }
    return all;
}

void sort(std::vector<ScreenShot> &shots)
{
    const auto screens = QGuiApplication::screens();
    std::ranges::sort(shots, {}, [&](const ScreenShot &shot) { return screens.indexOf(shot.screen); });
}

} // namespace ScreenScale
