#pragma once

#include "shapes/Point.h"

#include <numbers>

// Angles in radians, counted from the x axis towards the y axis.
namespace ShapeRecognizer {

constexpr double pi = std::numbers::pi;
constexpr double quarterTurn = pi / 2;

constexpr double degrees(double count) { return count * pi / 180; }

// The angle between two vectors, 0 … π; 0 when one of them has no length.
[[nodiscard]] double angleBetween(Point u, Point v);

// The difference of two directions, brought back into −π … π.
[[nodiscard]] double wrapped(double difference);

// The nearest of origin + k · step when it is closer than reach, otherwise the
// angle itself. Halfway angles belong to the multiple farther from the origin.
[[nodiscard]] double snapped(double angle, double step, double reach, double origin = 0);

} // namespace ShapeRecognizer
