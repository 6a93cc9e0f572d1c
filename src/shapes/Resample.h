#pragma once

#include "shapes/Point.h"

#include <span>

namespace ShapeRecognizer {

// Returns the same path as n evenly spaced points, the first of them its start. A path
// without length, or n below 2, comes back as it is.
[[nodiscard]] Points resample(std::span<const Point> points, std::size_t n);

} // namespace ShapeRecognizer
