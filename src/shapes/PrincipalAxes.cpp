#include "shapes/PrincipalAxes.h"

#include "shapes/Angles.h"
#include "shapes/StrokeGeometry.h"
#include "shapes/Vectors.h"

namespace ShapeRecognizer {

namespace {

constexpr double axisReach = degrees(8);

} // namespace

Points Frame::coordinates(std::span<const Point> points) const
{
    const Point axis = unit(angle);
    Points result;
    result.reserve(points.size());
    for (const Point p : points)
        result.push_back(inFrame(p - centre, axis));
    return result;
}

Point Frame::toStroke(Point uv) const { return centre + turned(uv, unit(angle)); }

Frame principalFrame(std::span<const Point> points)
{
    const Point centre = centroid(points);
    double sxx = 0;
    double syy = 0;
    double sxy = 0;
    for (const Point p : points) {
        const Point d = p - centre;
        sxx += d.x * d.x;
        syy += d.y * d.y;
        sxy += d.x * d.y;
    }
    return {centre, 0.5 * std::atan2(2 * sxy, sxx - syy)};
}

Extents extents(std::span<const Point> coordinates)
{
    const Bounds box = bounds(coordinates);
    const Point high{box.x + box.width, box.y + box.height};
    return {{(high.x + box.x) / 2, (high.y + box.y) / 2}, {box.width / 2, box.height / 2}};
}

double snappedToAxis(double angle) { return snapped(angle, quarterTurn, axisReach); }

} // namespace ShapeRecognizer
