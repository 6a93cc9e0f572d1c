#include "shapes/ShapeRecognizer.h"

#include "shapes/Stages.h"
#include "shapes/StrokeGeometry.h"
#include "shapes/Vectors.h"

#include <algorithm>

namespace ShapeRecognizer {

namespace {

constexpr double smallestStep = 0.5;    // points
constexpr double smallestDiagonal = 16; // points
constexpr std::size_t fewestPoints = 5;

// A stroke is closed when its ends are near each other and the way between them
// was long; the wider the gap, the longer the way. Both as shares of the diagonal.
struct Closing {
    double gap;
    double length;
};
constexpr Closing closings[] = {{0.2, 1.6}, {0.3, 2.2}};

// Without the points that a resting hand leaves, and without NaN.
Points thinned(std::span<const Point> points)
{
    Points kept;
    for (const Point p : points) {
        if (kept.empty() || distance(kept.back(), p) > smallestStep)
            kept.push_back(p);
    }
    return kept;
}

bool isClosed(std::span<const Point> points, double diag)
{
    const double gap = distance(points.front(), points.back());
    const double way = pathLength(points);
    return std::ranges::any_of(closings,
                               [&](Closing c) { return gap < c.gap * diag && way > c.length * diag; });
}

bool isFinite(Point p) { return std::isfinite(p.x) && std::isfinite(p.y); }

} // namespace

std::optional<Result> recognize(std::span<const Point> points, bool yUp)
{
    const Points kept = thinned(points);
    if (kept.size() < fewestPoints)
        return std::nullopt;
    const Bounds box = bounds(kept);
    const double diag = length({box.width, box.height});
    if (!(diag >= smallestDiagonal))
        return std::nullopt;
    std::optional<Result> result
        = isClosed(kept, diag) ? closed(trimOverlap(kept), diag, yUp) : open(kept, diag, yUp);
    if (result && !std::ranges::all_of(result->points, isFinite))
        return std::nullopt; // the coordinates were too large to reckon with
    return result;
}

} // namespace ShapeRecognizer
