#include "shapes/Angles.h"

#include "shapes/Vectors.h"

#include <algorithm>
#include <cmath>

namespace ShapeRecognizer {

double angleBetween(Point u, Point v)
{
    const double lengths = length(u) * length(v);
    if (lengths == 0)
        return 0;
    return std::acos(std::clamp(dot(u, v) / lengths, -1.0, 1.0));
}

double wrapped(double difference)
{
    if (difference > pi)
        return difference - 2 * pi;
    if (difference < -pi)
        return difference + 2 * pi;
    return difference;
}

double snapped(double angle, double step, double reach, double origin)
{
    const double candidate = origin + std::round((angle - origin) / step) * step;
    return std::abs(angle - candidate) < reach ? candidate : angle;
}

} // namespace ShapeRecognizer
