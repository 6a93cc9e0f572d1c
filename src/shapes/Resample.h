#pragma once

#include "shapes/Point.h"

#include <span>

namespace ShapeRecognizer {

// Returns the same path as n evenly spaced points, beginning with its start. A path
// without length is returned unchanged, and so is any path for n below 2.
[[nodiscard]] Points resample(std::span<const Point> points, std::size_t n);

} // namespace ShapeRecognizer
