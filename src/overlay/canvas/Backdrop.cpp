#include "overlay/canvas/Backdrop.h"

#include "base/Painting.h"
#include "toolbar/Theme.h"

#include <QPainter>

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

void Backdrop::draw(QPainter &painter, const QRect &bright, const QRegion &exposed) const
{
    const Painting::Saved saved(painter);
    for (const QRect &area : exposed) {
        const QRect pixels = area & m_shot.image.rect();
        // Under a clip that is one rectangle Qt copies rows; under the whole
        // exposed region it would go span by span, in several threads.
        painter.setClipRect(pixels);
        for (const QRect &outside : QRegion(pixels).subtracted(bright))
            drawDimmed(painter, outside);
        if (pixels.intersects(bright))
            painter.drawImage((pixels & bright).topLeft(), m_shot.image, pixels & bright);
    }
}
