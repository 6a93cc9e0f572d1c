#pragma once

#include <vector>

namespace ShapeRecognizer {

// A place in the caller's coordinates. Nothing but the recognisers that are
// told so cares which way y grows.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point &, const Point &) = default;
};

using Points = std::vector<Point>;

} // namespace ShapeRecognizer
