#include "shapes/Corners.h"

#include "shapes/Angles.h"
#include "shapes/Cyclic.h"
#include "shapes/Vectors.h"

namespace ShapeRecognizer {

namespace {

constexpr double smallestTurn = degrees(55);
constexpr int turnReach = 4; // points on either side

} // namespace

double turningAngle(std::span<const Point> ring, std::size_t index)
{
    const Point before = ring[cyclicIndex(index, -turnReach, ring.size())];
    const Point after = ring[cyclicIndex(index, turnReach, ring.size())];
    return angleBetween(ring[index] - before, after - ring[index]);
}

Corners findCorners(std::span<const Point> ring)
{
    std::vector<double> turns(ring.size());
    for (std::size_t i = 0; i < ring.size(); ++i)
        turns[i] = turningAngle(ring, i);

    Corners corners;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        if (turns[i] > smallestTurn && isPeak(turns, i, turnReach))
            corners.push_back(i);
    }
    return corners;
}

Points cornerPoints(std::span<const Point> ring, std::span<const std::size_t> corners)
{
    Points points;
    for (const std::size_t corner : corners)
        points.push_back(ring[corner]);
    return points;
}

} // namespace ShapeRecognizer
