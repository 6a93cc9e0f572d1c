#pragma once

#include "shapes/Point.h"

#include <span>

// Finds the frame in whose axes a set of points is upright.
namespace ShapeRecognizer {

// Describes a turned coordinate system: points relative to the centre are turned
// back by the angle, which gives u along the first axis and v along the second.
struct Frame {
    Point centre;
    double angle = 0;

    [[nodiscard]] Points coordinates(std::span<const Point> points) const;
    [[nodiscard]] Point toStroke(Point uv) const;
};

// Holds the middle and half the size of a set of frame coordinates.
struct Extents {
    Point middle;
    Point half;
};

// Returns the frame about the centroid, along the principal axes of the second
// moments.
[[nodiscard]] Frame principalFrame(std::span<const Point> points);

[[nodiscard]] Extents extents(std::span<const Point> coordinates);

// Returns the direction of an axis for an angle within 8° of it, otherwise the
// angle itself.
[[nodiscard]] double snappedToAxis(double angle);

} // namespace ShapeRecognizer
