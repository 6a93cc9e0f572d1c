#include "shapes/OpenFitters.h"

#include "shapes/Angles.h"
#include "shapes/StrokeGeometry.h"
#include "shapes/Vectors.h"

#include <algorithm>

namespace ShapeRecognizer {

namespace {

// Of the diagonal:
constexpr double arrowTolerance = 0.06;
constexpr double shortestShaft = 0.55;
constexpr double shortestArm = 0.15;
constexpr double largestCheckError = 0.05;

// Of the shaft:
constexpr double longestHead = 1.2;
constexpr double headReach = 0.45;
constexpr double shaftWobble = 0.08;
constexpr double shortestBarb = 0.08;
constexpr double drawnBarb = 0.22;

constexpr double shaftSlack = 2;         // points
constexpr double tipReach = 0.5;         // points
constexpr double shortestDrawnBarb = 12; // points
constexpr double longestDrawnBarb = 60;  // points
constexpr double widestBarb = degrees(75);
constexpr double barbSpread = 0.5; // radians from the shaft
constexpr std::size_t fewestArrowVertices = 3;
constexpr std::size_t mostArrowVertices = 6;

constexpr std::size_t verticesAtEnd = 3; // too near an end of the stroke to be where the arms meet
constexpr double sharpestCheck = degrees(45);
constexpr double bluntestCheck = degrees(120);
constexpr double armRatio = 1.2;       // long arm to short arm
constexpr double longestDetour = 1.35; // of both arms

struct Shaft {
    Point tail;
    Point tip;
    double length;
};

bool isCompact(std::span<const Point> head, Shaft shaft)
{
    return pathLength(head) < longestHead * shaft.length && std::ranges::all_of(head, [&](Point p) {
               return distance(p, shaft.tip) < headReach * shaft.length;
           });
}

// Looks only at what was drawn before the stroke first came to the tip.
bool isStraight(Shaft shaft, std::span<const Point> points)
{
    const auto atTip
        = std::ranges::find_if(points, [&](Point p) { return distance(p, shaft.tip) < tipReach; });
    if (atTip == points.end())
        return true;
    const double most = shaftWobble * shaft.length + shaftSlack;
    return std::all_of(points.begin(), atTip + 1,
                       [&](Point p) { return segmentDistance(p, shaft.tail, shaft.tip) <= most; });
}

bool foldsBack(Point barbEnd, Shaft shaft)
{
    const Point barb = barbEnd - shaft.tip;
    return length(barb) > shortestBarb * shaft.length
           && angleBetween(shaft.tail - shaft.tip, barb) < widestBarb;
}

Points arrowOutline(Shaft shaft)
{
    const double barb = std::clamp(drawnBarb * shaft.length, shortestDrawnBarb, longestDrawnBarb);
    const double angle = direction(shaft.tip - shaft.tail);
    return {shaft.tail, shaft.tip, shaft.tip - barb * unit(angle - barbSpread), shaft.tip,
            shaft.tip - barb * unit(angle + barbSpread)};
}

// Of equally low points the first counts.
std::size_t lowest(std::span<const Point> points, double up)
{
    const auto lower = [up](Point a, Point b) { return up * a.y < up * b.y; };
    return static_cast<std::size_t>(std::ranges::min_element(points, lower) - points.begin());
}

struct Arms {
    Point start;
    Point vertex;
    Point end;
    double first; // lengths
    double second;
};

bool haveCheckForm(const Arms &arms, double diag, double up)
{
    const double angle = angleBetween(arms.start - arms.vertex, arms.end - arms.vertex);
    return angle > sharpestCheck && angle < bluntestCheck && arms.second > armRatio * arms.first
           && arms.first > shortestArm * diag && up * (arms.start.y - arms.vertex.y) > 0
           && up * (arms.end.y - arms.vertex.y) > 0 && up * (arms.end.y - arms.start.y) > 0;
}

double meanDistanceToArms(std::span<const Point> points, const Arms &arms)
{
    double sum = 0;
    for (const Point p : points)
        sum += std::min(segmentDistance(p, arms.start, arms.vertex),
                        segmentDistance(p, arms.vertex, arms.end));
    return sum / static_cast<double>(points.size());
}

} // namespace

std::optional<Result> arrow(std::span<const Point> points, double diag)
{
    const Points vertices = simplify(points, arrowTolerance * diag);
    if (vertices.size() < fewestArrowVertices || vertices.size() > mostArrowVertices)
        return std::nullopt;
    const Shaft shaft{vertices[0], vertices[1], distance(vertices[0], vertices[1])};
    const std::span<const Point> head = std::span(vertices).subspan(1);
    if (!(shaft.length > shortestShaft * diag) || !isCompact(head, shaft) || !isStraight(shaft, points))
        return std::nullopt;
    if (std::ranges::none_of(head.subspan(1), [&](Point p) { return foldsBack(p, shaft); }))
        return std::nullopt;
    return Result{"flecha", arrowOutline(shaft)};
}

std::optional<Result> check(std::span<const Point> points, double diag, bool yUp)
{
    const double up = yUp ? 1 : -1;
    if (points.empty())
        return std::nullopt;
    const std::size_t k = lowest(points, up);
    if (k < verticesAtEnd || k + verticesAtEnd >= points.size())
        return std::nullopt;
    const Arms arms{points.front(), points[k], points.back(), distance(points.front(), points[k]),
                    distance(points[k], points.back())};
    if (!haveCheckForm(arms, diag, up) || !(meanDistanceToArms(points, arms) / diag < largestCheckError)
        || !(pathLength(smooth(points)) < longestDetour * (arms.first + arms.second)))
        return std::nullopt;
    return Result{"visto", {arms.start, arms.vertex, arms.end}};
}

} // namespace ShapeRecognizer
