#include "overlay/Backdrop.h"

#include "base/Painting.h"
#include "base/ViewSpace.h"
#include "toolbar/Theme.h"

namespace {

QRect pixelsOf(const QRect &points, double scale)
{
    return QRectF(QPointF(points.topLeft()) * scale, QSizeF(points.size()) * scale).toAlignedRect();
}

QRect selectedPixels(const ScreenShot &shot, const std::optional<QRectF> &selection)
{
    if (!selection)
        return {};
    const QRectF down = ViewSpace(shot.pointSize).toWidget(*selection);
    const QPoint low = (down.topLeft() * shot.scale).toPoint();
    const QPoint high = (down.bottomRight() * shot.scale).toPoint();
    return {low, high - QPoint{1, 1}};
}

} // namespace

namespace Backdrop {

void draw(QPainter &painter, const ScreenShot &shot, const std::optional<QRectF> &selection,
          const QRegion &exposed)
{
    const Painting::Saved saved(painter);
    painter.scale(1 / shot.scale, 1 / shot.scale); // from here on in pixels
    const QRect bright = selectedPixels(shot, selection);
    for (const QRect &area : exposed) {
        const QRect pixels = pixelsOf(area, shot.scale) & shot.image.rect();
        painter.drawImage(pixels.topLeft(), shot.image, pixels);
        for (const QRect &dimmed : QRegion(pixels).subtracted(bright))
            painter.fillRect(dimmed, Theme::scrim);
    }
}

} // namespace Backdrop
