#pragma once

#include "shapes/Point.h"

#include <span>

// Closed polygons, given by their vertices; the last edge runs back to the first.
namespace ShapeRecognizer {

// Whether no two edges cross. Touching and overlapping edges do not cross.
[[nodiscard]] bool isSimple(std::span<const Point> polygon);

// How far the points are from the nearest edge on average.
[[nodiscard]] double meanDistance(std::span<const Point> points, std::span<const Point> polygon);

// The outline as it is drawn: the first vertex once more at the end.
[[nodiscard]] Points closedOutline(std::span<const Point> polygon);

} // namespace ShapeRecognizer
