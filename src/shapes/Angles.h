#pragma once

#include "shapes/Point.h"

#include <numbers>

// Computes with angles in radians, counted from the x axis towards the y axis.
namespace ShapeRecognizer {

constexpr double pi = std::numbers::pi;
constexpr double quarterTurn = pi / 2;

constexpr double degrees(double count) { return count * pi / 180; }

// Returns the angle between two vectors, 0 … π; 0 when either has no length.
[[nodiscard]] double angleBetween(Point u, Point v);

// Returns the difference of two directions, brought back into −π … π.
[[nodiscard]] double wrapped(double difference);

// Returns the nearest of origin + k · step if it is closer than reach, otherwise
// the angle itself. Halfway angles belong to the multiple farther from the origin.
[[nodiscard]] double snapped(double angle, double step, double reach, double origin = 0);

} // namespace ShapeRecognizer
