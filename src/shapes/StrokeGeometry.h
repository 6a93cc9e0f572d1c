#pragma once

#include "shapes/Point.h"

#include <span>

// Measures and cleans up one hand-drawn stroke. Nothing here knows which way is up.
namespace ShapeRecognizer {

struct Bounds {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

// Returns the distance to the nearest point between a and b, both included.
[[nodiscard]] double segmentDistance(Point p, Point a, Point b);

[[nodiscard]] double pathLength(std::span<const Point> points);

// Returns the bounding box; an empty one for no points.
[[nodiscard]] Bounds bounds(std::span<const Point> points);

// Returns the mean of the points; the origin for no points.
[[nodiscard]] Point centroid(std::span<const Point> points);

// Returns a moving average over five points, fewer towards the ends, which stay.
// Strokes of fewer than five points are returned unchanged.
[[nodiscard]] Points smooth(std::span<const Point> points);

// Drops points that lie within epsilon of the lines between those that stay
// (Ramer–Douglas–Peucker).
[[nodiscard]] Points simplify(std::span<const Point> points, double epsilon);

// Returns a closed stroke without what was drawn past its own start: it ends at the
// point of its last quarter that is nearest to the start.
[[nodiscard]] std::span<const Point> trimOverlap(std::span<const Point> points);

// Returns the two ends of a line. A line within 4° of horizontal, vertical or
// diagonal is turned about its start until it is exact; its length stays.
[[nodiscard]] Points snapLine(Point from, Point to);

} // namespace ShapeRecognizer
