#pragma once

#include "base/ViewSpace.h"
#include "marks/Annotation.h"

#include <QImage>
#include <QPainter>

// Provides a sheet of points, y upwards, on which marks are drawn and single pixels
// are looked at.
class Canvas {
public:
    explicit Canvas(double scale = 1, QSizeF size = {400, 300}, const QColor &ground = Qt::white)
        : space(size)
        , m_image((size * scale).toSize(), QImage::Format_ARGB32_Premultiplied)
    {
        m_image.setDevicePixelRatio(scale);
        m_image.fill(ground);
    }

    void draw(const Annotation &mark)
    {
        QPainter painter(&m_image);
        painter.setTransform(space.upwards(), true);
        mark.draw(painter, space.bounds());
    }

    // Makes a part blank, counted in points from the top left corner.
    void erase(const QRegion &part)
    {
        QPainter painter(&m_image);
        painter.setClipRegion(part);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(part.boundingRect(), Qt::black);
    }

    // Returns the pixel whose lower left corner is at a point.
    [[nodiscard]] QColor at(QPointF point) const
    {
        const double scale = m_image.devicePixelRatio();
        const QPointF down = space.fromWidget(point);
        return m_image.pixelColor(int(down.x() * scale), int(down.y() * scale) - 1);
    }

    // Returns how many pixels on a column of the sheet differ from the ground.
    [[nodiscard]] int inkOnColumn(double x, const QColor &ground = Qt::white) const
    {
        int count = 0;
        for (int y = 0; y < m_image.height(); ++y)
            count += m_image.pixelColor(int(x * m_image.devicePixelRatio()), y) != ground;
        return count;
    }

    [[nodiscard]] int ink(const QColor &ground = Qt::white) const
    {
        int count = 0;
        for (int x = 0; x < m_image.width(); ++x)
            count += inkOnColumn(x / m_image.devicePixelRatio(), ground);
        return count;
    }

    [[nodiscard]] const QImage &image() const { return m_image; }

    const ViewSpace space;

private:
    QImage m_image;
};
