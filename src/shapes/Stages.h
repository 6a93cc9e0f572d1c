#pragma once

#include "shapes/Result.h"

#include <optional>
#include <span>

// The two ways to look at a stroke. Both take its points and the diagonal of its
// bounding box; the first recogniser that accepts decides.
namespace ShapeRecognizer {

[[nodiscard]] std::optional<Result> open(std::span<const Point> points, double diag, bool yUp);
[[nodiscard]] std::optional<Result> closed(std::span<const Point> points, double diag, bool yUp);

} // namespace ShapeRecognizer
