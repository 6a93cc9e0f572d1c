#pragma once

#include "shapes/Result.h"

#include <optional>
#include <span>

// Recognise a stroke as an open or as a closed shape. Both functions take its
// points and the diagonal of its bounding box; the first recogniser that accepts
// decides.
namespace ShapeRecognizer {

[[nodiscard]] std::optional<Result> open(std::span<const Point> points, double diag, bool yUp);
[[nodiscard]] std::optional<Result> closed(std::span<const Point> points, double diag, bool yUp);

} // namespace ShapeRecognizer
