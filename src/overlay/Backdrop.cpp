#include "overlay/Backdrop.h"

#include "base/Painting.h"
#include "base/ViewSpace.h"
#include "toolbar/Theme.h"

#include <QPainter>

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

QImage Backdrop::dimmed(const QImage &picture)
{
    QImage copy = picture;
    QPainter(&copy).fillRect(copy.rect(), Theme::scrim);
    return copy;
}

void Backdrop::drawDimmed(QPainter &painter, const QRect &pixels) const
{
    painter.drawImage(pixels.topLeft(), m_dimmed.isNull() ? m_shot.image : m_dimmed, pixels);
    if (m_dimmed.isNull())
        painter.fillRect(pixels, Theme::scrim);
}

void Backdrop::draw(QPainter &painter, const std::optional<QRectF> &selection, const QRegion &exposed) const
{
    const Painting::Saved saved(painter);
    painter.scale(1 / m_shot.scale, 1 / m_shot.scale); // from here on in pixels
    const QRect bright = selectedPixels(m_shot, selection);
    for (const QRect &area : exposed) {
        const QRect pixels = pixelsOf(area, m_shot.scale) & m_shot.image.rect();
        // Under a clip that is one rectangle the toolkit copies rows; under the
        // whole exposed region it would go span by span, in several threads.
        painter.setClipRect(pixels);
        for (const QRect &outside : QRegion(pixels).subtracted(bright))
            drawDimmed(painter, outside);
        if (pixels.intersects(bright))
            painter.drawImage((pixels & bright).topLeft(), m_shot.image, pixels & bright);
    }
}
