#include "shapes/Templates.h"

#include "shapes/Angles.h"
#include "shapes/Polygon.h"
#include "shapes/Resample.h"
#include "shapes/StrokeGeometry.h"
#include "shapes/Vectors.h"

#include <algorithm>
#include <limits>

namespace ShapeRecognizer {

namespace {

// A power of two: dividing by it is exact, so sums compare like means.
constexpr std::size_t ringSize = 64;
constexpr double smallestSide = 4; // points
constexpr double flattest = 2.2;   // longer to shorter side
constexpr double worstScore = 0.085;
constexpr int heartPoints = 200;
constexpr int mostTurns = 3;     // either way
constexpr double turnStep = 0.1; // radians

Points normalised(std::span<const Point> points, const Bounds &box)
{
    Points result;
    result.reserve(points.size());
    for (const Point p : points)
        result.push_back({(p.x - box.x) / box.width, (p.y - box.y) / box.height});
    return result;
}

Points heart()
{
    Points points;
    for (int i = 0; i < heartPoints; ++i) {
        const double t = 2 * pi * i / heartPoints;
        const double s = std::sin(t);
        points.push_back(
            {16 * s * s * s, 13 * std::cos(t) - 5 * std::cos(2 * t) - 2 * std::cos(3 * t) - std::cos(4 * t)});
    }
    return points;
}

// Template coordinates in the direction in which the caller's y grows.
Points oriented(std::span<const Point> points, bool yUp)
{
    Points result(points.begin(), points.end());
    if (!yUp) {
        for (Point &p : result)
            p.y = 1 - p.y;
    }
    return result;
}

// Given up as soon as it cannot be below `best` any more.
double summedDistance(std::span<const Point> stroke, std::span<const Point> outline, double best)
{
    double sum = 0;
    for (std::size_t i = 0; i < ringSize && sum <= best; ++i)
        sum += distance(stroke[i], outline[i]);
    return sum;
}

// Over every start. The outline is repeated once, so that an alignment is a
// plain piece of it.
double smallestSum(std::span<const Point> stroke, std::span<const Point> outline, double best)
{
    Points twice(outline.begin(), outline.end());
    twice.insert(twice.end(), outline.begin(), outline.end());
    for (std::size_t start = 0; start < ringSize; ++start)
        best = std::min(best, summedDistance(stroke, std::span(twice).subspan(start, ringSize), best));
    return best;
}

double score(std::span<const Point> stroke, Points outline)
{
    double sum = smallestSum(stroke, outline, std::numeric_limits<double>::infinity());
    std::ranges::reverse(outline);
    sum = smallestSum(stroke, outline, sum);
    return sum / static_cast<double>(ringSize);
}

bool isComparable(const Bounds &box)
{
    return box.width > smallestSide && box.height > smallestSide
           && std::max(box.width, box.height) / std::min(box.width, box.height) < flattest;
}

Points inBox(Points unitSquare, const Bounds &box)
{
    for (Point &p : unitSquare)
        p = {box.x + box.width * p.x, box.y + box.height * p.y};
    return unitSquare;
}

Points rotated(std::span<const Point> points, Point centre, double angle)
{
    const Point axis = unit(angle);
    Points result;
    result.reserve(points.size());
    for (const Point p : points)
        result.push_back(centre + turned(p - centre, axis));
    return result;
}

} // namespace

Template makeTemplate(std::string name, std::span<const Point> points, std::span<const Point> exact)
{
    const Bounds box = bounds(points);
    Points ring = resample(closedOutline(normalised(points, box)), ringSize + 1);
    ring.pop_back(); // the first point again
    return {std::move(name), std::move(ring), normalised(exact.empty() ? points : exact, box)};
}

std::span<const Template> templates()
{
    static const std::vector<Template> table{makeTemplate("corazon", heart())};
    return table;
}

std::optional<Match> matchTemplatesOnce(std::span<const Point> points, bool yUp)
{
    const Bounds box = bounds(points);
    if (points.size() != ringSize || !isComparable(box))
        return std::nullopt;
    const Points stroke = normalised(points, box);
    const Template *best = nullptr;
    double bestScore = std::numeric_limits<double>::infinity();
    for (const Template &candidate : templates()) {
        const double reached = score(stroke, oriented(candidate.points, yUp));
        if (reached < bestScore) {
            best = &candidate;
            bestScore = reached;
        }
    }
    if (!best || !(bestScore < worstScore))
        return std::nullopt;
    return Match{{best->name, closedOutline(inBox(oriented(best->exact, yUp), box))}, bestScore};
}

std::optional<Result> matchTemplates(std::span<const Point> points, bool yUp)
{
    const Point centre = centroid(points);
    std::optional<Match> best;
    for (int k = -mostTurns; k <= mostTurns; ++k) {
        const double angle = k * turnStep;
        std::optional<Match> match = matchTemplatesOnce(rotated(points, centre, angle), yUp);
        if (!match || (best && !(match->score < best->score)))
            continue;
        match->result.points = rotated(match->result.points, centre, -angle);
        best = std::move(match);
    }
    if (!best)
        return std::nullopt;
    return std::move(best->result);
}

} // namespace ShapeRecognizer
