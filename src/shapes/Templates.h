#pragma once

#include "shapes/Result.h"

#include <optional>
#include <span>
#include <string>

// Recognises closed shapes by their looks rather than by their parts: a stroke is
// compared with stored outlines, wherever it starts and whichever way round it
// goes.
namespace ShapeRecognizer {

// Describes one stored outline. Coordinates lie in the unit square, y upwards.
struct Template {
    std::string name;
    Points points; // 64 evenly spaced points to compare with
    Points exact;  // the outline that is drawn when the template matches
};

// Makes a template from outlines of any size; both are scaled by the box of
// `points`. Without an exact outline the points themselves are drawn.
[[nodiscard]] Template makeTemplate(std::string name, std::span<const Point> points,
                                    std::span<const Point> exact = {});

[[nodiscard]] std::span<const Template> templates();

struct Match {
    Result result;
    double score; // mean distance as a part of the box; 0 is perfect
};

// Returns the best template for a ring of 64 points in the position it has.
[[nodiscard]] std::optional<Match> matchTemplatesOnce(std::span<const Point> points, bool yUp);

// Returns the best template over tilts of up to 0.3 radians either way; the result
// is tilted like the stroke.
[[nodiscard]] std::optional<Result> matchTemplates(std::span<const Point> points, bool yUp);

} // namespace ShapeRecognizer
