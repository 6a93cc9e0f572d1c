#include "toolbar/PaletteGeometry.h"

#include "base/Overloaded.h"
#include "base/Rect.h"

#include <algorithm>

namespace {

// All in points.
constexpr int cols = 5;
constexpr double cell = 22; // from one dot to the next
constexpr double margin = 9;
constexpr double dotSide = 16;
constexpr double slack = 3; // a dot is hit this far around it
constexpr QRectF dropperRow{9, 55, 104, 20};
constexpr double recentTop = 83;

QRectF place(int index, double top)
{
    return {margin + index % cols * cell, top + index / cols * cell, dotSide, dotSide};
}

// Neighbours share a border, and a point on it is in only one of them.
bool holds(const QRectF &rect, QPointF point)
{
    return point.x() >= minX(rect) && point.x() < maxX(rect) && point.y() >= minY(rect)
           && point.y() < maxY(rect);
}

} // namespace

namespace PaletteGeometry {

QRectF fixedDot(int index) { return place(index, margin); }

QRectF eyedropperRow() { return dropperRow; }

QRectF recentSlot(int index) { return place(index, recentTop); }

QRectF placeOf(const Hit &item)
{
    return std::visit(Overloaded{
                          [](Eyedropper) { return eyedropperRow(); },
                          [](FixedColor fixed) { return fixedDot(fixed.index); },
                          [](RecentColor recent) { return recentSlot(recent.index); },
                      },
                      item);
}

std::optional<Hit> hitAt(QPointF point, int recentColors)
{
    if (holds(dropperRow, point))
        return Eyedropper{};
    for (int i = 0; i < places; ++i)
        if (holds(grown(fixedDot(i), slack), point))
            return FixedColor{i};
    for (int i = 0; i < std::min(recentColors, places); ++i)
        if (holds(grown(recentSlot(i), slack), point))
            return RecentColor{i};
    if (point.y() > recentTop - slack)
        return Eyedropper{};
    return std::nullopt;
}

} // namespace PaletteGeometry
