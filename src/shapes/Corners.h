#pragma once

#include "shapes/Point.h"

#include <span>

// Finds the corners of a ring: a closed stroke as evenly spaced points, the first
// of which is not repeated at the end.
namespace ShapeRecognizer {

using Corners = std::vector<std::size_t>; // ascending indices into the ring

// Returns how far the ring turns at a point, in radians, measured over four points
// on either side: 0 on a straight run, π for a full reversal.
[[nodiscard]] double turningAngle(std::span<const Point> ring, std::size_t index);

// Returns the points where the ring turns by more than 55° and nowhere more within
// four points.
[[nodiscard]] Corners findCorners(std::span<const Point> ring);

[[nodiscard]] Points cornerPoints(std::span<const Point> ring, std::span<const std::size_t> corners);

} // namespace ShapeRecognizer
