#include "shapes/CircleArc.h"

#include "shapes/Angles.h"
#include "shapes/StrokeGeometry.h"
#include "shapes/Vectors.h"

#include <algorithm>

namespace ShapeRecognizer {

namespace {

constexpr double smallestDeterminant = 1e-6;
constexpr double smallestRadius = 4;     // points
constexpr double largestArcError = 0.06; // of the radius
constexpr double shortestSweep = degrees(50);
constexpr double longestSweep = degrees(320);
constexpr double longestTravel = 1.15; // of the sweep
constexpr double outlineStep = degrees(5);
constexpr int fewestSegments = 12;

// Sums over the points relative to their centroid, named by their factors.
struct Moments {
    double uu = 0;
    double vv = 0;
    double uv = 0;
    double uuu = 0;
    double vvv = 0;
    double uvv = 0;
    double vuu = 0;
};

Moments moments(std::span<const Point> points, Point centre)
{
    Moments sum;
    for (const Point p : points) {
        const auto [u, v] = p - centre;
        sum.uu += u * u;
        sum.vv += v * v;
        sum.uv += u * v;
        sum.uuu += u * u * u;
        sum.vvv += v * v * v;
        sum.uvv += u * v * v;
        sum.vuu += v * u * u;
    }
    return sum;
}

double meanDeviation(std::span<const Point> points, const Circle &circle)
{
    double sum = 0;
    for (const Point p : points)
        sum += std::abs(distance(p, circle.centre) - circle.radius);
    return sum / static_cast<double>(points.size());
}

struct Sweep {
    double start = 0;  // direction from the centre
    double turn = 0;   // signed, to the end
    double travel = 0; // with every step back counted as well
};

Sweep sweepAround(Point centre, std::span<const Point> points)
{
    Sweep sweep{direction(points.front() - centre)};
    double previous = sweep.start;
    for (const Point p : points.subspan(1)) {
        const double angle = direction(p - centre);
        const double step = wrapped(angle - previous);
        sweep.turn += step;
        sweep.travel += std::abs(step);
        previous = angle;
    }
    return sweep;
}

bool isArc(const Sweep &sweep)
{
    const double turn = std::abs(sweep.turn);
    return turn > shortestSweep && turn < longestSweep && sweep.travel < longestTravel * turn;
}

Points outline(const Circle &circle, const Sweep &sweep)
{
    const int segments = std::max(fewestSegments, static_cast<int>(std::abs(sweep.turn) / outlineStep));
    Points points;
    for (int i = 0; i <= segments; ++i)
        points.push_back(circle.centre + circle.radius * unit(sweep.start + sweep.turn * i / segments));
    return points;
}

} // namespace

std::optional<Circle> fitCircle(std::span<const Point> points)
{
    const Point centre = centroid(points);
    const Moments sum = moments(points, centre);
    const double det = sum.uu * sum.vv - sum.uv * sum.uv;
    if (!(std::abs(det) > smallestDeterminant))
        return std::nullopt;
    const double p = 0.5 * (sum.uuu + sum.uvv);
    const double q = 0.5 * (sum.vvv + sum.vuu);
    const Point offset{(p * sum.vv - q * sum.uv) / det, (q * sum.uu - p * sum.uv) / det};
    const double n = static_cast<double>(points.size());
    const double radius = std::sqrt((sum.uu + sum.vv) / n + offset.x * offset.x + offset.y * offset.y);
    if (!(radius > smallestRadius) || !std::isfinite(radius))
        return std::nullopt;
    return Circle{centre + offset, radius};
}

std::optional<Result> arc(std::span<const Point> points)
{
    const std::optional<Circle> circle = fitCircle(points);
    if (!circle || !(meanDeviation(points, *circle) / circle->radius < largestArcError))
        return std::nullopt;
    const Sweep sweep = sweepAround(circle->centre, points);
    if (!isArc(sweep))
        return std::nullopt;
    return Result{"arco", outline(*circle, sweep)};
}

} // namespace ShapeRecognizer
