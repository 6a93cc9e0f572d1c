#pragma once

#include "marks/Look.h"

#include <QPointF>
#include <QPolygonF>

// Computes the boxes that lines and outlines lie in, soft edges included, in view
// points.
namespace Reach {

// Returns the box grown on every side by so many points and by the room for a soft
// edge.
[[nodiscard]] QRectF spill(const QRectF &box, double by);
// Returns the box round the points; it is empty when there are none.
[[nodiscard]] QRectF boxOf(const QPolygonF &points);
// Adds boxes for a straight line that extends so many points to either side.
void addLine(Look::Boxes &boxes, QPointF from, QPointF to, double reach);
// Returns boxes for the lines from each point to the next.
[[nodiscard]] Look::Boxes along(const QPolygonF &outline, double reach);
// Returns whether a line from each point to the next passes by the given one, at
// most so many points away.
[[nodiscard]] bool passes(const QPolygonF &outline, QPointF point, double away);

} // namespace Reach
