#pragma once

#include <span>

// Treats a sequence as a ring, whose last value is followed by its first.
namespace ShapeRecognizer {

[[nodiscard]] std::size_t cyclicIndex(std::size_t index, int offset, std::size_t count);

// Returns whether no value up to `reach` places away is greater. Of a run of equal
// values only the first is a peak.
[[nodiscard]] bool isPeak(std::span<const double> values, std::size_t index, int reach);

} // namespace ShapeRecognizer
