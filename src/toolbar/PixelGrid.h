#pragma once

#include <QPainter>
#include <QRectF>

#include <cmath>

// Where a painter's device has its pixels. On a screen of one and a quarter
// pixels a point, a widget's whole points lie between them.
namespace PixelGrid {

// Returns the nearest place where a pixel begins.
[[nodiscard]] inline QPointF snapped(const QPainter &painter, QPointF point)
{
    const QTransform toDevice = painter.deviceTransform();
    const QPointF pixel = toDevice.map(point);
    return toDevice.inverted().map(QPointF{std::round(pixel.x()), std::round(pixel.y())});
}

// Returns a rectangle with every edge between two pixels.
[[nodiscard]] inline QRectF snapped(const QPainter &painter, const QRectF &rect)
{
    return {snapped(painter, rect.topLeft()), snapped(painter, rect.bottomRight())};
}

} // namespace PixelGrid
