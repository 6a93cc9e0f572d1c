#pragma once

#include "shapes/Result.h"

#include <optional>
#include <span>
#include <string>

// Closed shapes that are told by how they look, not by how they are made up:
// they are compared with drawn outlines, wherever they start and whichever way
// round they go.
namespace ShapeRecognizer {

// Coordinates lie in the unit square, y upwards.
struct Template {
    std::string name;
    Points points; // 64, evenly spaced, to compare with
    Points exact;  // what is drawn when it matches
};

// Both outlines may be of any size; both are scaled by the box of `points`.
// Without an exact outline the points themselves are drawn.
[[nodiscard]] Template makeTemplate(std::string name, std::span<const Point> points,
                                    std::span<const Point> exact = {});

[[nodiscard]] std::span<const Template> templates();

struct Match {
    Result result;
    double score; // mean distance, of the box: 0 is perfect
};

// The best template for a ring of 64 points as it stands.
[[nodiscard]] std::optional<Match> matchTemplatesOnce(std::span<const Point> points, bool yUp);

// The best over tilts of up to 0.3 radians either way; the result is tilted like
// the stroke.
[[nodiscard]] std::optional<Result> matchTemplates(std::span<const Point> points, bool yUp);

} // namespace ShapeRecognizer
