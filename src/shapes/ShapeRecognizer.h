#pragma once

#include "shapes/Resample.h"
#include "shapes/Result.h"

#include <optional>
#include <span>

// Turns a hand-drawn stroke into the shape it was meant to be. These are pure
// functions of their arguments; any thread may call them.
namespace ShapeRecognizer {

// Returns the recognised shape; absent when the stroke is none of the known shapes
// and should stay as drawn. Any input is allowed: an empty stroke, one with NaN,
// one that overflows. Lengths are in points on the screen; yUp tells whether y
// grows upwards.
[[nodiscard]] std::optional<Result> recognize(std::span<const Point> points, bool yUp);

} // namespace ShapeRecognizer
