#include "shapes/Stages.h"

#include "shapes/CircleArc.h"
#include "shapes/Corners.h"
#include "shapes/EllipseFit.h"
#include "shapes/OpenFitters.h"
#include "shapes/Polygon.h"
#include "shapes/Quadrilaterals.h"
#include "shapes/Resample.h"
#include "shapes/Star.h"
#include "shapes/StrokeGeometry.h"
#include "shapes/Templates.h"
#include "shapes/Vectors.h"

#include <algorithm>

namespace ShapeRecognizer {

namespace {

constexpr std::size_t spacedPoints = 64;
constexpr std::size_t fewestClosedPoints = 5;

constexpr double shortestChord = 0.5; // of the diagonal
constexpr double lineWobble = 0.05;   // of the chord
constexpr double lineSlack = 2;       // points
constexpr double longestLine = 1.1;   // of the chord, once smoothed

constexpr double cleanEllipseError = 0.05;
constexpr double largestEllipseError = 0.08;
constexpr std::size_t mostEllipseCorners = 4;
constexpr double largestPolygonError = 0.04; // of the diagonal

double largestDeviation(std::span<const Point> points)
{
    double largest = 0;
    for (const Point p : points)
        largest = std::max(largest, segmentDistance(p, points.front(), points.back()));
    return largest;
}

bool isLine(std::span<const Point> points, double diag)
{
    const double chord = distance(points.front(), points.back());
    return chord > shortestChord * diag && largestDeviation(points) < lineWobble * chord + lineSlack
           && pathLength(smooth(points)) < longestLine * chord;
}

Points ringOf(std::span<const Point> points)
{
    Points ring = resample(closedOutline(points), spacedPoints + 1);
    ring.pop_back(); // the first point again
    return ring;
}

bool isEllipse(const std::optional<EllipseFit> &fit, double largestError, const Corners &corners)
{
    return fit && fit->err < largestError && corners.size() <= mostEllipseCorners;
}

Result quadrilateral(const FourPoints &corners)
{
    if (const auto right = rectangle(corners))
        return {right->diamond ? "rombo" : "rectangulo", closedOutline(right->corners)};
    if (const auto even = rhombus(corners))
        return {"rombo", closedOutline(*even)};
    return {"cuadrilatero", closedOutline(corners)};
}

// Three or four corners are the whole shape when straight edges between them
// follow the stroke.
std::optional<Result> polygon(std::span<const Point> ring, const Corners &corners, double diag)
{
    if (corners.size() != 3 && corners.size() != 4)
        return std::nullopt;
    const Points vertices = cornerPoints(ring, corners);
    if (!(meanDistance(ring, vertices) / diag < largestPolygonError) || !isSimple(vertices))
        return std::nullopt;
    if (vertices.size() == 3)
        return Result{"triangulo", closedOutline(vertices)};
    return quadrilateral({vertices[0], vertices[1], vertices[2], vertices[3]});
}

} // namespace

std::optional<Result> open(std::span<const Point> points, double diag, bool yUp)
{
    if (points.empty())
        return std::nullopt;
    if (isLine(points, diag))
        return Result{"linea", snapLine(points.front(), points.back())};
    const Points spaced = resample(points, spacedPoints);
    if (auto result = arrow(spaced, diag))
        return result;
    if (auto result = check(spaced, diag, yUp))
        return result;
    return arc(spaced);
}

// A clean ellipse comes before any polygon, a doubtful one only when nothing
// else was found.
std::optional<Result> closed(std::span<const Point> points, double diag, bool yUp)
{
    if (points.size() < fewestClosedPoints)
        return std::nullopt;
    const Points ring = ringOf(points);
    const Corners corners = findCorners(ring);
    const std::optional<EllipseFit> ellipse = ellipseFit(ring);
    if (isEllipse(ellipse, cleanEllipseError, corners))
        return ellipse->result;
    if (auto result = star(ring, corners, diag, yUp))
        return result;
    if (auto result = polygon(ring, corners, diag))
        return result;
    if (auto result = matchTemplates(ring, yUp))
        return result;
    if (const auto rounded = rhombusByAxes(ring, diag))
        return Result{"rombo", closedOutline(*rounded)};
    if (isEllipse(ellipse, largestEllipseError, corners))
        return ellipse->result;
    return std::nullopt;
}

} // namespace ShapeRecognizer
