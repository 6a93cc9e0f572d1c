#pragma once

#include <vector>

namespace ShapeRecognizer {

// Describes a place in the caller's coordinates. Only the recognisers that take yUp
// depend on which way y grows.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point &, const Point &) = default;
};

using Points = std::vector<Point>;

} // namespace ShapeRecognizer
