#include "overlay/canvas/ScreenPixels.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double farthest = 1e6; // pixels; beyond every screen, within every integer

int wholePixel(double pixel) { return static_cast<int>(std::floor(std::clamp(pixel, -farthest, farthest))); }

} // namespace

namespace ScreenPixels {

QRect pixelRect(const ScreenShot &shot, QPointF at, int radius)
{
    constexpr double roundingError = 1e-6; // a third of a point times three is not quite a pixel
    const int x = wholePixel(at.x() * shot.scale + roundingError);
    const int y = wholePixel((shot.pointSize.height() - at.y()) * shot.scale + roundingError);
    const int side = 2 * radius + 1;
    return {x - radius, y - radius, side, side};
}

std::optional<QColor> pixelColor(const ScreenShot &shot, QPointF at)
{
    const QPoint pixel = pixelRect(shot, at, 0).topLeft();
    if (!shot.image.rect().contains(pixel))
        return std::nullopt;
    return shot.image.pixelColor(pixel);
}

} // namespace ScreenPixels
