#include "overlay/ArrowShape.h"

#include "overlay/Annotation.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double shortest = 2;      // points
constexpr double headFactor = 4.5;  // of the line width
constexpr double smallestHead = 10; // points
constexpr double halfAngle = 0.42;  // of the head, radians
constexpr double shaftInHead = 0.8; // of the head's length

QPointF towards(double angle, double length) { return {length * std::cos(angle), length * std::sin(angle)}; }

} // namespace

std::optional<ArrowShape> ArrowShape::of(const Annotation &mark)
{
    if (mark.points.isEmpty())
        return std::nullopt;
    const QPointF from = mark.first();
    const QPointF tip = mark.last();
    const QPointF way = tip - from;
    if (!(std::hypot(way.x(), way.y()) > shortest))
        return std::nullopt;
    const double head = std::max(mark.width * headFactor, smallestHead);
    const double angle = std::atan2(way.y(), way.x());
    return ArrowShape{
        {from, tip - towards(angle, head * shaftInHead)},
        QPolygonF{tip, tip - towards(angle - halfAngle, head), tip - towards(angle + halfAngle, head)}};
}
