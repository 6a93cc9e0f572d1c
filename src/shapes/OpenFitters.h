#pragma once

#include "shapes/Result.h"

#include <optional>
#include <span>

// Open shapes of straight lines. The points are the stroke, evenly spaced; diag
// is the diagonal of its bounding box.
namespace ShapeRecognizer {

// A shaft drawn from its tail, with a head of at least one barb in the same
// stroke. The result has two barbs, whatever the head looked like.
[[nodiscard]] std::optional<Result> arrow(std::span<const Point> points, double diag);

// A check mark, its short arm drawn first.
[[nodiscard]] std::optional<Result> check(std::span<const Point> points, double diag, bool yUp);

} // namespace ShapeRecognizer
