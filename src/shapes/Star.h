#pragma once

#include "shapes/Corners.h"
#include "shapes/Result.h"

#include <optional>
#include <span>

namespace ShapeRecognizer {

// Recognises a five-pointed star, drawn either as one line that crosses itself or
// around its outline. A star that is nearly upright comes out with one tip straight
// up.
[[nodiscard]] std::optional<Result> star(std::span<const Point> ring, std::span<const std::size_t> corners,
                                         double diag, bool yUp);

} // namespace ShapeRecognizer
