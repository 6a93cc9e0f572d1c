#include "shapes/StrokeGeometry.h"

#include "shapes/Angles.h"
#include "shapes/Vectors.h"

#include <algorithm>
#include <cmath>

namespace ShapeRecognizer {

namespace {

constexpr double lineStep = pi / 4;
constexpr double lineReach = degrees(4);
constexpr std::size_t smoothingReach = 2; // points on either side
constexpr std::size_t fewestToSmooth = 5;

Point average(std::span<const Point> points)
{
    Point sum;
    for (const Point p : points)
        sum = sum + p;
    const auto count = static_cast<double>(points.size());
    return {sum.x / count, sum.y / count};
}

struct Farthest {
    std::size_t index;
    double distance;
};

// Of equally far points the earliest counts.
Farthest farthestFromChord(std::span<const Point> points)
{
    Farthest far{0, 0};
    for (std::size_t i = 1; i + 1 < points.size(); ++i) {
        const double away = segmentDistance(points[i], points.front(), points.back());
        if (away > far.distance)
            far = {i, away};
    }
    return far;
}

// Appends what stays of the points after the first.
void appendSimplified(std::span<const Point> points, double epsilon, Points &to)
{
    const auto [split, away] = farthestFromChord(points);
    if (split == 0 || !(away > epsilon)) {
        to.push_back(points.back());
        return;
    }
    appendSimplified(points.first(split + 1), epsilon, to);
    appendSimplified(points.subspan(split), epsilon, to);
}

} // namespace

double segmentDistance(Point p, Point a, Point b)
{
    const Point along = b - a;
    const double squared = dot(along, along);
    if (squared == 0)
        return distance(p, a);
    const double t = std::clamp(dot(p - a, along) / squared, 0.0, 1.0);
    return distance(p, a + t * along);
}

double pathLength(std::span<const Point> points)
{
    double sum = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        sum += distance(points[i - 1], points[i]);
    return sum;
}

Bounds bounds(std::span<const Point> points)
{
    if (points.empty())
        return {};
    Point low = points.front();
    Point high = low;
    for (const Point p : points) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    return {low.x, low.y, high.x - low.x, high.y - low.y};
}

Point centroid(std::span<const Point> points) { return points.empty() ? Point{} : average(points); }

Points smooth(std::span<const Point> points)
{
    Points result(points.begin(), points.end());
    if (points.size() < fewestToSmooth)
        return result;
    const std::size_t last = points.size() - 1;
    for (std::size_t i = 1; i < last; ++i) {
        const std::size_t from = i - std::min(i, smoothingReach);
        const std::size_t to = std::min(i + smoothingReach, last);
        result[i] = average(points.subspan(from, to - from + 1));
    }
    return result;
}

Points simplify(std::span<const Point> points, double epsilon)
{
    if (points.size() < 3)
        return {points.begin(), points.end()};
    Points result{points.front()};
    appendSimplified(points, epsilon, result);
    return result;
}

std::span<const Point> trimOverlap(std::span<const Point> points)
{
    const std::size_t start = 3 * points.size() / 4;
    if (start + 1 >= points.size())
        return points;
    std::size_t best = points.size() - 1;
    double bestDistance = distance(points[best], points.front());
    for (std::size_t i = start; i < points.size(); ++i) {
        const double away = distance(points[i], points.front());
        if (away < bestDistance) {
            best = i;
            bestDistance = away;
        }
    }
    return points.first(best + 1);
}

Points snapLine(Point from, Point to)
{
    const double angle = direction(to - from);
    const double nearest = std::round(angle / lineStep) * lineStep;
    if (std::abs(angle - nearest) < lineReach)
        return {from, from + distance(from, to) * unit(nearest)};
    return {from, to};
}

} // namespace ShapeRecognizer
