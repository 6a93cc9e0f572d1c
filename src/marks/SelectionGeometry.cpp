#include "marks/SelectionGeometry.h"

#include "base/Rect.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double handleSide = 8; // points
constexpr double grabMargin = 5; // points of slack on every side of a handle

// Which edges each handle drags, in handle order: -1 the low edge, +1 the high
// edge, 0 none.
struct Pull {
    int x;
    int y;
};
constexpr std::array<Pull, 8> pulls{{{-1, -1}, {0, -1}, {1, -1}, {1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}}};

} // namespace

namespace SelectionGeometry {

std::array<QPointF, 8> handlePoints(const QRectF &selection)
{
    std::array<QPointF, 8> points;
    for (size_t i = 0; i < points.size(); ++i)
        points[i] = {midX(selection) + pulls[i].x * selection.width() / 2,
                     midY(selection) + pulls[i].y * selection.height() / 2};
    return points;
}

std::array<QRectF, 8> handleRects(const QRectF &selection)
{
    std::array<QRectF, 8> rects;
    std::ranges::transform(handlePoints(selection), rects.begin(),
                           [](QPointF handle) { return squareAround(handle, handleSide); });
    return rects;
}

std::optional<int> handleAt(const QRectF &selection, QPointF point)
{
    const auto rects = handleRects(selection);
    const auto *hit = std::ranges::find_if(
        rects, [&](const QRectF &rect) { return grown(rect, grabMargin).contains(point); });
    if (hit == rects.end())
        return std::nullopt;
    return static_cast<int>(hit - rects.begin());
}

QRectF resized(const QRectF &selection, int handle, QPointF to)
{
    const auto [pullX, pullY] = pulls.at(static_cast<size_t>(handle));
    QPointF low{minX(selection), minY(selection)};
    QPointF high{maxX(selection), maxY(selection)};
    if (pullX < 0)
        low.setX(to.x());
    if (pullX > 0)
        high.setX(to.x());
    if (pullY < 0)
        low.setY(to.y());
    if (pullY > 0)
        high.setY(to.y());
    return spanned(low, high);
}

QRectF moved(const QRectF &selection, QPointF by, const QRectF &bounds)
{
    const QSizeF size = selection.size();
    const double x = std::min(std::max(minX(selection) + by.x(), 0.0), maxX(bounds) - size.width());
    const double y = std::min(std::max(minY(selection) + by.y(), 0.0), maxY(bounds) - size.height());
    return {QPointF{x, y}, size};
}

} // namespace SelectionGeometry
