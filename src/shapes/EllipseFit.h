#pragma once

#include "shapes/Result.h"

#include <optional>
#include <span>

namespace ShapeRecognizer {

struct EllipseFit {
    Result result; // "circulo" or "elipse", 73 points
    double err;    // mean deviation from the ellipse, relative to its radius
};

// Returns the ellipse through a ring of evenly spaced points; absent when a
// semi-axis is 4 points or less. An ellipse that is nearly round becomes a circle,
// one that is nearly upright becomes upright.
[[nodiscard]] std::optional<EllipseFit> ellipseFit(std::span<const Point> points);

} // namespace ShapeRecognizer
