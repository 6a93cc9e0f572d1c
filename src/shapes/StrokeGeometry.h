#pragma once

#include "shapes/Point.h"

#include <span>

// Measurements and clean-ups of one hand-drawn stroke. Nothing here knows which
// way is up.
namespace ShapeRecognizer {

struct Bounds {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

// The distance to the nearest point between a and b, both included.
[[nodiscard]] double segmentDistance(Point p, Point a, Point b);

[[nodiscard]] double pathLength(std::span<const Point> points);

// The empty rectangle for no points.
[[nodiscard]] Bounds bounds(std::span<const Point> points);

// The origin for no points.
[[nodiscard]] Point centroid(std::span<const Point> points);

// A moving average over five points, narrower towards the ends, which stay.
// Strokes of fewer than five points are left alone.
[[nodiscard]] Points smooth(std::span<const Point> points);

// Drops what lies within epsilon of the lines between the points that stay
// (Ramer–Douglas–Peucker).
[[nodiscard]] Points simplify(std::span<const Point> points, double epsilon);

// A closed stroke without what was drawn past its own start: it ends at the
// point of its last quarter that is nearest to the start.
[[nodiscard]] std::span<const Point> trimOverlap(std::span<const Point> points);

// The two ends of a line. One that is within 4° of horizontal, vertical or
// diagonal is turned about its start until it is exactly so; its length stays.
[[nodiscard]] Points snapLine(Point from, Point to);

} // namespace ShapeRecognizer
