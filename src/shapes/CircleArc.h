#pragma once

#include "shapes/Result.h"

#include <optional>
#include <span>

namespace ShapeRecognizer {

struct Circle {
    Point centre;
    double radius = 0;
};

// Returns the least-squares circle through the points (Kåsa's algebraic fit).
// Absent for points on a line and for radii of 4 points or less.
[[nodiscard]] std::optional<Circle> fitCircle(std::span<const Point> points);

// Recognises an arc of a circle between 50° and 320°, drawn without turning back.
// The result begins where the stroke did and runs in its direction.
[[nodiscard]] std::optional<Result> arc(std::span<const Point> points);

} // namespace ShapeRecognizer
