#pragma once

#include "shapes/Point.h"

#include <array>
#include <optional>
#include <span>

// Recognises regular quadrilaterals. Four corners come in the order in which they
// were drawn, and none of them is repeated.
namespace ShapeRecognizer {

using FourPoints = std::array<Point, 4>;

struct Rectangle {
    FourPoints corners;
    bool diamond; // whether it stands on a corner and its sides are equal
};

// Returns the rectangle nearest to the corners; absent unless every corner is
// within 20° of a right angle.
[[nodiscard]] std::optional<Rectangle> rectangle(const FourPoints &corners);

// Returns the rhombus nearest to the corners; absent unless the sides are nearly
// equal and the diagonals nearly perpendicular.
[[nodiscard]] std::optional<FourPoints> rhombus(const FourPoints &corners);

// Recognises a rhombus whose corners are too round to be found, from a ring of
// points around it and the diagonal of the stroke's bounding box.
[[nodiscard]] std::optional<FourPoints> rhombusByAxes(std::span<const Point> ring, double diag);

} // namespace ShapeRecognizer
