#include "shapes/EllipseFit.h"

#include "shapes/Angles.h"
#include "shapes/PrincipalAxes.h"
#include "shapes/Vectors.h"

#include <algorithm>

namespace ShapeRecognizer {

namespace {

constexpr double smallestSemiAxis = 4; // points
constexpr double roundest = 1.15;      // longer to shorter semi-axis of an ellipse
constexpr int outlineSteps = 72;

struct Ellipse {
    Frame frame;
    Point semi; // semi-axes along the frame's first and second axis
};

bool isLargeEnough(const Ellipse &ellipse)
{
    return ellipse.semi.x > smallestSemiAxis && ellipse.semi.y > smallestSemiAxis;
}

// Along evenly spread points of an ellipse the mean of cos² is a half.
Ellipse fromMoments(const Frame &frame, std::span<const Point> coordinates)
{
    Point squares;
    for (const Point uv : coordinates)
        squares = squares + Point{uv.x * uv.x, uv.y * uv.y};
    const auto n = static_cast<double>(coordinates.size());
    return {frame, {std::sqrt(2 * squares.x / n), std::sqrt(2 * squares.y / n)}};
}

Ellipse fromExtents(const Frame &frame, std::span<const Point> coordinates)
{
    const auto [middle, half] = extents(coordinates);
    return {{frame.toStroke(middle), frame.angle}, half};
}

double meanDeviation(std::span<const Point> points, const Ellipse &ellipse)
{
    const Point semi = ellipse.semi;
    double sum = 0;
    for (const Point uv : ellipse.frame.coordinates(points)) {
        const double radius = std::sqrt(uv.x * uv.x / (semi.x * semi.x) + uv.y * uv.y / (semi.y * semi.y));
        sum += std::abs(radius - 1);
    }
    return sum / static_cast<double>(points.size());
}

bool isRound(Point semi) { return std::max(semi.x, semi.y) / std::min(semi.x, semi.y) < roundest; }

Points outline(const Ellipse &ellipse)
{
    Points points;
    for (int i = 0; i <= outlineSteps; ++i) {
        const Point onCircle = unit(2 * pi * (i % outlineSteps) / outlineSteps);
        points.push_back(ellipse.frame.toStroke({ellipse.semi.x * onCircle.x, ellipse.semi.y * onCircle.y}));
    }
    return points;
}

Result perfected(Ellipse ellipse)
{
    const bool round = isRound(ellipse.semi);
    if (round) {
        const double radius = (ellipse.semi.x + ellipse.semi.y) / 2;
        ellipse.semi = {radius, radius};
        ellipse.frame.angle = 0;
    }
    ellipse.frame.angle = snappedToAxis(ellipse.frame.angle);
    return {round ? "circulo" : "elipse", outline(ellipse)};
}

} // namespace

std::optional<EllipseFit> ellipseFit(std::span<const Point> points)
{
    const Frame frame = principalFrame(points);
    const Points coordinates = frame.coordinates(points);
    const Ellipse byMoments = fromMoments(frame, coordinates);
    const Ellipse byExtents = fromExtents(frame, coordinates);
    if (!isLargeEnough(byMoments) || !isLargeEnough(byExtents))
        return std::nullopt;

    const double momentsError = meanDeviation(points, byMoments);
    const double extentsError = meanDeviation(points, byExtents);
    if (extentsError < momentsError)
        return EllipseFit{perfected(byExtents), extentsError};
    return EllipseFit{perfected(byMoments), momentsError};
}

} // namespace ShapeRecognizer
