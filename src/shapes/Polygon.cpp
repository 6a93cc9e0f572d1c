#include "shapes/Polygon.h"

#include "shapes/StrokeGeometry.h"
#include "shapes/Vectors.h"

#include <algorithm>
#include <limits>

namespace ShapeRecognizer {

namespace {

struct Edge {
    Point from;
    Point to;
};

Edge edgeAt(std::span<const Point> polygon, std::size_t i)
{
    return {polygon[i], polygon[i + 1 == polygon.size() ? 0 : i + 1]};
}

bool separates(Edge edge, Point a, Point b)
{
    const Point along = edge.to - edge.from;
    return cross(along, a - edge.from) * cross(along, b - edge.from) < 0;
}

bool areCrossing(Edge p, Edge q) { return separates(p, q.from, q.to) && separates(q, p.from, p.to); }

double distanceToNearestEdge(Point p, std::span<const Point> polygon)
{
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Edge edge = edgeAt(polygon, i);
        nearest = std::min(nearest, segmentDistance(p, edge.from, edge.to));
    }
    return nearest;
}

} // namespace

bool isSimple(std::span<const Point> polygon)
{
    const std::size_t count = polygon.size();
    if (count < 4)
        return true;
    for (std::size_t i = 0; i < count; ++i) {
        // The first edge and the closing one share a vertex.
        const std::size_t end = i == 0 ? count - 1 : count;
        for (std::size_t j = i + 2; j < end; ++j) {
            if (areCrossing(edgeAt(polygon, i), edgeAt(polygon, j)))
                return false;
        }
    }
    return true;
}

double meanDistance(std::span<const Point> points, std::span<const Point> polygon)
{
    double sum = 0;
    for (const Point p : points)
        sum += distanceToNearestEdge(p, polygon);
    return sum / static_cast<double>(points.size());
}

Points closedOutline(std::span<const Point> polygon)
{
    Points outline(polygon.begin(), polygon.end());
    outline.push_back(polygon.front());
    return outline;
}

} // namespace ShapeRecognizer
