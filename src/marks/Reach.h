#pragma once

#include "marks/Look.h"

#include <QPointF>
#include <QPolygonF>

// The boxes that lines and outlines lie in, soft edges included. View points.
namespace Reach {

// Returns the box with room for a soft edge, and for so much more on every side.
[[nodiscard]] QRectF spill(const QRectF &box, double by);
// Returns the box round the points; empty points make an empty box.
[[nodiscard]] QRectF boxOf(const QPolygonF &points);
// Adds the boxes of a straight line that reaches that far to its sides.
void addLine(Look::Boxes &boxes, QPointF from, QPointF to, double reach);
// Returns the boxes of all the lines from each point to the next.
[[nodiscard]] Look::Boxes along(const QPolygonF &outline, double reach);

} // namespace Reach
