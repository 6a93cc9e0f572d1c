#pragma once

#include <QPointF>
#include <QRectF>

#include <array>
#include <optional>

// Where the eight handles of a selection are and what dragging one does. View
// points, y upwards; every rectangle normalised.
namespace SelectionGeometry {

// Counter-clockwise from the bottom left corner.
[[nodiscard]] std::array<QPointF, 8> handlePoints(const QRectF &selection);
// The squares that the handles are drawn in.
[[nodiscard]] std::array<QRectF, 8> handleRects(const QRectF &selection);
// The first handle, in their order, that a press at the point grabs.
[[nodiscard]] std::optional<int> handleAt(const QRectF &selection, QPointF point);

// A handle may be dragged across the opposite edge: the rectangle then turns
// over instead of stopping.
[[nodiscard]] QRectF resized(const QRectF &selection, int handle, QPointF to);
// Stops at the edges of the bounds, which begin at the origin.
[[nodiscard]] QRectF moved(const QRectF &selection, QPointF by, const QRectF &bounds);

} // namespace SelectionGeometry
