#pragma once

#include "shapes/Resample.h"
#include "shapes/Result.h"

#include <optional>
#include <span>

// Turns a hand-drawn stroke into the shape it was meant to be. Pure functions
// of their arguments; any thread may call them.
namespace ShapeRecognizer {

// Absent when the stroke is none of the known shapes and should stay as drawn,
// which any input may be: an empty one, one with NaN, one that overflows.
// Lengths are meant in points on screen; yUp tells whether y grows upwards.
[[nodiscard]] std::optional<Result> recognize(std::span<const Point> points, bool yUp);

} // namespace ShapeRecognizer
