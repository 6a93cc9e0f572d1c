#pragma once

#include "shapes/Result.h"

#include <optional>
#include <span>

// Recognises open shapes made of straight lines. The points are the stroke, evenly
// spaced; diag is the diagonal of its bounding box.
namespace ShapeRecognizer {

// Recognises an arrow: a shaft drawn from its tail, with a head of at least one
// barb in the same stroke. The result always has two barbs.
[[nodiscard]] std::optional<Result> arrow(std::span<const Point> points, double diag);

// Recognises a check mark whose short arm is drawn first.
[[nodiscard]] std::optional<Result> check(std::span<const Point> points, double diag, bool yUp);

} // namespace ShapeRecognizer
