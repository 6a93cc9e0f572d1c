#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

// Draws a dashed line of one point along the edge of a rectangle.
namespace DashedFrame {

// Draws the dashes, and what lies between them in the other colour if that is valid.
// The rectangle is in view points, y upwards; the middle of the line runs along it.
void draw(QPainter &painter, const QRectF &frame, const QColor &dashes, const QColor &gaps = {});

} // namespace DashedFrame
