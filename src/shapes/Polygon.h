#pragma once

#include "shapes/Point.h"

#include <span>

// Measures closed polygons, given by their vertices; the last edge runs back to the
// first.
namespace ShapeRecognizer {

// Returns whether no two edges cross. Touching and overlapping edges do not cross.
[[nodiscard]] bool isSimple(std::span<const Point> polygon);

// Returns the mean distance of the points from the nearest edge.
[[nodiscard]] double meanDistance(std::span<const Point> points, std::span<const Point> polygon);

// Returns the outline as it is drawn, with the first vertex repeated at the end.
[[nodiscard]] Points closedOutline(std::span<const Point> polygon);

} // namespace ShapeRecognizer
