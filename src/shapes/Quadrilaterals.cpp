#include "shapes/Quadrilaterals.h"

#include "shapes/Angles.h"
#include "shapes/Polygon.h"
#include "shapes/PrincipalAxes.h"
#include "shapes/StrokeGeometry.h"
#include "shapes/Vectors.h"

#include <algorithm>

namespace ShapeRecognizer {

namespace {

constexpr double rightAngleSlack = degrees(20);
constexpr double uprightReach = degrees(7);
constexpr double diamondReach = degrees(10); // from a tilt of 45°
constexpr double squareSlack = 0.08;         // of the longer half side
constexpr double diamondSlack = 0.2;         // of the longer half side
constexpr double sideSlack = 0.2;            // of the mean side
constexpr double diagonalSlack = degrees(15);
constexpr double smallestHalfExtent = 4;     // points
constexpr double largestRhombusError = 0.03; // of the diagonal

FourPoints edges(const FourPoints &corners)
{
    return {corners[1] - corners[0], corners[2] - corners[1], corners[3] - corners[2],
            corners[0] - corners[3]};
}

bool isRightAngled(const FourPoints &corners)
{
    const FourPoints along = edges(corners);
    for (std::size_t i = 0; i < along.size(); ++i) {
        // An edge without length makes an angle of 0, which is never right.
        const double turn = angleBetween(along[i], along[(i + 1) % along.size()]);
        if (!(std::abs(turn - quarterTurn) < rightAngleSlack))
            return false;
    }
    return true;
}

// All four edges of a rectangle agree once their angles are multiplied by 4.
double orientation(const FourPoints &corners)
{
    double sines = 0;
    double cosines = 0;
    for (const Point edge : edges(corners)) {
        const double weight = length(edge);
        const double angle = direction(edge);
        sines += weight * std::sin(4 * angle);
        cosines += weight * std::cos(4 * angle);
    }
    const double theta = 0.25 * std::atan2(sines, cosines);
    return std::abs(theta) < uprightReach ? 0 : theta;
}

Point meanHalfSides(const FourPoints &corners, const Frame &frame)
{
    Point sum;
    for (const Point uv : frame.coordinates(corners))
        sum = sum + Point{std::abs(uv.x), std::abs(uv.y)};
    return {sum.x / 4, sum.y / 4};
}

bool areNearlyEqual(Point halfSides, double slack)
{
    return std::abs(halfSides.x - halfSides.y) < slack * std::max(halfSides.x, halfSides.y);
}

Point equalised(Point halfSides)
{
    const double side = (halfSides.x + halfSides.y) / 2;
    return {side, side};
}

// Corners at the ends of two half diagonals that are perpendicular.
FourPoints rhombusAround(Point centre, double angle, Point halfDiagonals)
{
    const Point axis = unit(angle);
    const Point along = halfDiagonals.x * axis;
    const Point across = halfDiagonals.y * Point{-axis.y, axis.x};
    return {centre + along, centre + across, centre - along, centre - across};
}

} // namespace

std::optional<Rectangle> rectangle(const FourPoints &corners)
{
    if (!isRightAngled(corners))
        return std::nullopt;
    Frame frame{centroid(corners), orientation(corners)};
    Point half = meanHalfSides(corners, frame);
    const bool square = areNearlyEqual(half, squareSlack);
    if (square)
        half = equalised(half);

    const bool onCorner = std::abs(std::abs(frame.angle) - pi / 4) < diamondReach;
    const bool diamond = onCorner && (square || areNearlyEqual(half, diamondSlack));
    if (diamond) {
        half = equalised(half);
        frame.angle = std::copysign(pi / 4, frame.angle);
    }
    return Rectangle{{frame.toStroke({-half.x, -half.y}), frame.toStroke({half.x, -half.y}),
                      frame.toStroke({half.x, half.y}), frame.toStroke({-half.x, half.y})},
                     diamond};
}

std::optional<FourPoints> rhombus(const FourPoints &corners)
{
    const FourPoints sides = edges(corners);
    double sum = 0;
    for (const Point side : sides)
        sum += length(side);
    const double mean = sum / 4;
    const auto isUneven = [mean](Point side) { return !(std::abs(length(side) - mean) < sideSlack * mean); };
    if (std::ranges::any_of(sides, isUneven))
        return std::nullopt;

    const Point first = corners[2] - corners[0];
    const Point second = corners[3] - corners[1];
    if (!(std::abs(angleBetween(first, second) - quarterTurn) < diagonalSlack))
        return std::nullopt;
    return rhombusAround(centroid(corners), snappedToAxis(direction(first)),
                         {length(first) / 2, length(second) / 2});
}

std::optional<FourPoints> rhombusByAxes(std::span<const Point> ring, double diag)
{
    Frame frame = principalFrame(ring);
    frame.angle = snappedToAxis(frame.angle);
    const auto [middle, half] = extents(frame.coordinates(ring));
    if (!(half.x > smallestHalfExtent && half.y > smallestHalfExtent))
        return std::nullopt;
    const FourPoints candidate = rhombusAround(frame.toStroke(middle), frame.angle, half);
    if (!(meanDistance(ring, candidate) / diag < largestRhombusError))
        return std::nullopt;
    return candidate;
}

} // namespace ShapeRecognizer
