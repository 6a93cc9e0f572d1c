#include "shapes/Star.h"

#include "shapes/Angles.h"
#include "shapes/Cyclic.h"
#include "shapes/Polygon.h"
#include "shapes/StrokeGeometry.h"
#include "shapes/Vectors.h"

#include <algorithm>
#include <array>

namespace ShapeRecognizer {

namespace {

constexpr std::size_t tipCount = 5;
constexpr double tipStep = 2 * pi / tipCount;
constexpr double uprightReach = degrees(15);
constexpr double largestPentagramError = 0.05;        // of the diagonal
constexpr double bluntestPentagramTip = degrees(100); // as a turning angle
constexpr std::array<int, tipCount> pentagramOrder{0, 2, 4, 1, 3};

constexpr int radiusSmoothing = 2; // points on either side
constexpr int tipReach = 3;        // points on either side
constexpr double narrowestGap = degrees(45);
constexpr double widestGap = degrees(100);
constexpr double deepestValley = 0.7; // of the tips' radius

double upright(double angle, bool yUp)
{
    return snapped(angle, tipStep, uprightReach, yUp ? quarterTurn : -quarterTurn);
}

double mean(std::span<const double> values)
{
    double sum = 0;
    for (const double value : values)
        sum += value;
    return sum / static_cast<double>(values.size());
}

std::vector<double> radii(std::span<const Point> points, Point centre)
{
    std::vector<double> result;
    for (const Point p : points)
        result.push_back(distance(p, centre));
    return result;
}

bool isPentagram(std::span<const Point> ring, std::span<const std::size_t> corners, double diag)
{
    if (corners.size() != tipCount)
        return false;
    const Points tips = cornerPoints(ring, corners);
    return meanDistance(ring, tips) / diag < largestPentagramError
           && std::ranges::all_of(corners,
                                  [&](std::size_t i) { return turningAngle(ring, i) > bluntestPentagramTip; })
           && !isSimple(tips);
}

Result pentagram(std::span<const Point> tips, bool yUp)
{
    const Point centre = centroid(tips);
    const double radius = mean(radii(tips, centre));
    const double first = upright(direction(tips.front() - centre), yUp);
    Points outline;
    for (const int j : pentagramOrder)
        outline.push_back(centre + radius * unit(first + tipStep * j));
    return {"estrella", closedOutline(outline)};
}

std::vector<double> smoothed(std::span<const double> values)
{
    std::vector<double> result(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        for (int offset = -radiusSmoothing; offset <= radiusSmoothing; ++offset)
            result[i] += values[cyclicIndex(i, offset, values.size())];
        result[i] /= 2 * radiusSmoothing + 1;
    }
    return result;
}

Corners findTips(std::span<const double> smoothRadii)
{
    const double average = mean(smoothRadii);
    Corners tips;
    for (std::size_t i = 0; i < smoothRadii.size(); ++i) {
        if (smoothRadii[i] > average && isPeak(smoothRadii, i, tipReach))
            tips.push_back(i);
    }
    return tips;
}

double valley(std::span<const double> smoothRadii, std::size_t from, std::size_t to)
{
    double smallest = smoothRadii[from];
    for (std::size_t i = from; i != to; i = cyclicIndex(i, 1, smoothRadii.size()))
        smallest = std::min(smallest, smoothRadii[i]);
    return std::min(smallest, smoothRadii[to]);
}

double meanValley(std::span<const double> smoothRadii, std::span<const std::size_t> tips)
{
    std::vector<double> valleys;
    for (std::size_t i = 0; i < tips.size(); ++i)
        valleys.push_back(valley(smoothRadii, tips[i], tips[(i + 1) % tips.size()]));
    return mean(valleys);
}

bool areSpreadEvenly(std::span<const double> angles)
{
    for (std::size_t i = 0; i < angles.size(); ++i) {
        const double gap = std::abs(wrapped(angles[(i + 1) % angles.size()] - angles[i]));
        if (!(gap > narrowestGap && gap < widestGap))
            return false;
    }
    return true;
}

struct StarForm {
    Point centre;
    double tipRadius;
    double valleyRadius;
    double firstTip; // direction from the centre
    double step;     // from a tip to the next valley, in the stroke's own direction
};

Result starOutline(const StarForm &form)
{
    Points outline;
    for (int i = 0; i < 2 * static_cast<int>(tipCount); ++i) {
        const double radius = i % 2 == 0 ? form.tipRadius : form.valleyRadius;
        outline.push_back(form.centre + radius * unit(form.firstTip + form.step * i));
    }
    return {"estrella", closedOutline(outline)};
}

std::optional<Result> outlinedStar(std::span<const Point> ring, bool yUp)
{
    const Point centre = centroid(ring);
    const std::vector<double> smoothRadii = smoothed(radii(ring, centre));
    const Corners tips = findTips(smoothRadii);
    if (tips.size() != tipCount)
        return std::nullopt;

    const Points tipPoints = cornerPoints(ring, tips);
    std::vector<double> angles;
    for (const Point tip : tipPoints)
        angles.push_back(direction(tip - centre));
    const double tipRadius = mean(radii(tipPoints, centre));
    const double valleyRadius = meanValley(smoothRadii, tips);
    if (!areSpreadEvenly(angles) || !(valleyRadius / tipRadius < deepestValley))
        return std::nullopt;
    const double step = std::copysign(tipStep / 2, wrapped(angles[1] - angles[0]));
    return starOutline({centre, tipRadius, valleyRadius, upright(angles[0], yUp), step});
}

} // namespace

std::optional<Result> star(std::span<const Point> ring, std::span<const std::size_t> corners, double diag,
                           bool yUp)
{
    if (isPentagram(ring, corners, diag))
        return pentagram(cornerPoints(ring, corners), yUp);
    return outlinedStar(ring, yUp);
}

} // namespace ShapeRecognizer
