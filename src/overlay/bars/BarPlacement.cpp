#include "overlay/bars/BarPlacement.h"

#include "base/Rect.h"

#include <algorithm>

namespace {

constexpr double toSelection = 12; // points, as are the following
constexpr double toEdge = 4;
constexpr double toPalette = 8;
constexpr double nearMargin = 36;
constexpr double narrowBelow = 760;

// The right edge wins over the left one when there is no room for both.
double across(double middle, double width, const QRectF &bounds)
{
    return std::min(maxX(bounds) - width - toEdge, std::max(toEdge, middle - width / 2));
}

bool fits(double y, double height, const QRectF &bounds)
{
    return y >= toEdge && y + height <= maxY(bounds) - toEdge;
}

} // namespace

namespace BarPlacement {

Place bar(const QRectF &selection, QSizeF size, const QRectF &bounds)
{
    const double x = across(midX(selection), size.width(), bounds);
    const double under = minY(selection) - toSelection - size.height();
    if (under >= toEdge)
        return {{{x, under}, size}, true};
    const double over = maxY(selection) + toSelection;
    if (over + size.height() <= maxY(bounds) - toEdge)
        return {{{x, over}, size}, false};
    return {{{x, minY(selection) + toSelection}, size}, true};
}

QRectF palette(const Place &bar, double middle, QSizeF size, const QRectF &bounds)
{
    const double above = maxY(bar.frame) + toPalette;
    const double below = minY(bar.frame) - toPalette - size.height();
    const double preferred = bar.below ? below : above;
    const double other = bar.below ? above : below;
    return {
        {across(middle, size.width(), bounds), fits(preferred, size.height(), bounds) ? preferred : other},
        size};
}

bool isNear(const QRectF &bar, QPointF pointer) { return grown(bar, nearMargin).contains(pointer); }

bool isNarrow(const QRectF &bounds) { return bounds.width() < narrowBelow; }

} // namespace BarPlacement
