#pragma once

#include <QPointF>
#include <QRectF>

#include <array>
#include <optional>

// Computes where the eight handles of a selection are and what dragging one does.
// Everything is in view points, y upwards; every rectangle is normalised.
namespace SelectionGeometry {

// Returns the centres of the handles, counter-clockwise from the bottom left
// corner.
[[nodiscard]] std::array<QPointF, 8> handlePoints(const QRectF &selection);
// Returns the squares that the handles are drawn in.
[[nodiscard]] std::array<QRectF, 8> handleRects(const QRectF &selection);
// Returns the number of the first handle that a press at the point grabs.
[[nodiscard]] std::optional<int> handleAt(const QRectF &selection, QPointF point);

// Returns the selection with one handle dragged to a point. Across the opposite
// edge, the rectangle turns over instead of stopping.
[[nodiscard]] QRectF resized(const QRectF &selection, int handle, QPointF to);
// Returns the selection moved as far as the bounds allow, which begin at the
// origin.
[[nodiscard]] QRectF moved(const QRectF &selection, QPointF by, const QRectF &bounds);

} // namespace SelectionGeometry
