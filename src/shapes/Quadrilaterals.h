#pragma once

#include "shapes/Point.h"

#include <array>
#include <optional>
#include <span>

// Regular quadrilaterals. Four corners come in the order in which they were
// drawn, and none of them is repeated.
namespace ShapeRecognizer {

using FourPoints = std::array<Point, 4>;

struct Rectangle {
    FourPoints corners;
    bool diamond; // it stands on its corner and its sides are equal
};

// Absent unless every corner is within 20° of a right angle.
[[nodiscard]] std::optional<Rectangle> rectangle(const FourPoints &corners);

// Absent unless the sides are nearly equal and the diagonals nearly square.
[[nodiscard]] std::optional<FourPoints> rhombus(const FourPoints &corners);

// A rhombus with corners too round to be found, from a ring of points around it
// and the diagonal of the stroke's bounding box.
[[nodiscard]] std::optional<FourPoints> rhombusByAxes(std::span<const Point> ring, double diag);

} // namespace ShapeRecognizer
