#pragma once

#include "shapes/Point.h"

#include <optional>
#include <span>
#include <string>

// Turns a hand-drawn stroke into the shape it was meant to be. Pure functions
// of their arguments; any thread may call them.
namespace ShapeRecognizer {

struct Result {
    std::string name; // "linea", "flecha", "visto", "arco", "circulo", "elipse", "estrella", "triangulo",
                      // "rectangulo", "rombo", "cuadrilatero" or "corazon"
    Points points;    // the ideal outline, all finite; a closed shape ends where it began
};

// Absent when the stroke is none of the known shapes and should stay as drawn,
// which any input may be: an empty one, one with NaN, one that overflows.
// Lengths are meant in points on screen; yUp tells whether y grows upwards.
[[nodiscard]] std::optional<Result> recognize(std::span<const Point> points, bool yUp);

// The same path as n evenly spaced points, the first of them its start. A path
// without length, or n below 2, comes back as it is.
[[nodiscard]] Points resample(std::span<const Point> points, std::size_t n);

} // namespace ShapeRecognizer
