#include "overlay/canvas/ScreenPixels.h"

#include "base/ViewSpace.h"

namespace ScreenPixels {

QRect pixelRect(const ScreenShot &shot, QPointF at, int radius)
{
    const QPoint middle = ViewSpace(shot.pointSize, shot.scale).pixelAt(at);
    const int side = 2 * radius + 1;
    return {middle - QPoint(radius, radius), QSize(side, side)};
}

std::optional<QColor> pixelColor(const ScreenShot &shot, QPointF at)
{
    const QPoint pixel = pixelRect(shot, at, 0).topLeft();
    if (!shot.image.rect().contains(pixel))
        return std::nullopt;
    return shot.image.pixelColor(pixel);
}

} // namespace ScreenPixels
