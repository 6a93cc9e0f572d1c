#pragma once

#include <QPainter>
#include <QRectF>

#include <cmath>

// Aligns drawing with the pixels of a painter's device. On a screen with one and a
// quarter pixels per point, a widget's whole points lie between pixels.
namespace PixelGrid {

// Returns the nearest pixel corner.
[[nodiscard]] inline QPointF snapped(const QPainter &painter, QPointF point)
{
    const QTransform toDevice = painter.deviceTransform();
    const QPointF pixel = toDevice.map(point);
    return toDevice.inverted().map(QPointF{std::round(pixel.x()), std::round(pixel.y())});
}

// Returns the rectangle with every edge moved to the nearest pixel border.
[[nodiscard]] inline QRectF snapped(const QPainter &painter, const QRectF &rect)
{
    return {snapped(painter, rect.topLeft()), snapped(painter, rect.bottomRight())};
}

} // namespace PixelGrid
