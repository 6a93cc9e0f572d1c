#pragma once

#include "shapes/Point.h"

#include <span>

// The frame in which a set of points lies straight.
namespace ShapeRecognizer {

// Points relative to a centre are turned back by this frame's angle: u along
// the first axis, v along the second.
struct Frame {
    Point centre;
    double angle = 0;

    [[nodiscard]] Points coordinates(std::span<const Point> points) const;
    [[nodiscard]] Point toStroke(Point uv) const;
};

// The middle and half of the size of a set of frame coordinates.
struct Extents {
    Point middle;
    Point half;
};

// About the centroid, along the principal axes of the second moments.
[[nodiscard]] Frame principalFrame(std::span<const Point> points);

[[nodiscard]] Extents extents(std::span<const Point> coordinates);

// Draws an angle that is within 8° of an axis onto it.
[[nodiscard]] double snappedToAxis(double angle);

} // namespace ShapeRecognizer
