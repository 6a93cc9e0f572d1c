#include "toolbar/BarLayout.h"

#include <algorithm>

using BarLayout::buttonSide;

namespace {

using BarLayout::Item;
using BarLayout::Kind;

// All in points.
constexpr double thickness = 42;
constexpr double paddingBefore = 5;
constexpr double paddingAfter = 3;
constexpr double gap = 2; // after each button
constexpr double separatorSlot = 13;
constexpr double lineInset = 6; // of the separator's line in its slot
constexpr QSizeF uprightLine{1, 18};
constexpr QSizeF lyingLine{20, 1};
constexpr double edgeInset = 14;
constexpr double edgeFromTop = 0.5;

QRectF centredAcross(Qt::Orientation orientation, double along, QSizeF size)
{
    return orientation == Qt::Horizontal ? QRectF({along, (thickness - size.height()) / 2}, size)
                                         : QRectF({(thickness - size.width()) / 2, along}, size);
}

QRectF frameAt(Qt::Orientation orientation, double along, const Item &item)
{
    const bool lies = orientation == Qt::Horizontal;
    if (item.kind == Kind::separator)
        return centredAcross(orientation, along + lineInset, lies ? uprightLine : lyingLine);
    return centredAcross(orientation, along, {lies ? item.width : buttonSide, buttonSide});
}

double roomFor(Qt::Orientation orientation, const Item &item)
{
    if (item.kind == Kind::separator)
        return separatorSlot;
    return (orientation == Qt::Horizontal ? item.width : buttonSide) + gap;
}

} // namespace

namespace BarLayout {

Frames layOut(Qt::Orientation orientation, const QList<Item> &items)
{
    Frames frames;
    double along = paddingBefore;
    for (const Item &item : items) {
        if (item.kind == Kind::decoration) {
            frames.items.append(QRectF());
            continue;
        }
        frames.items.append(frameAt(orientation, along, item));
        along += roomFor(orientation, item);
    }
    const double length = along + paddingAfter;
    frames.size = orientation == Qt::Horizontal ? QSizeF(length, thickness) : QSizeF(thickness, length);
    for (qsizetype i = 0; i < items.size(); ++i)
        if (items[i].kind == Kind::decoration)
            frames.items[i] = QRectF({0, 0}, frames.size);
    return frames;
}

QRectF edge(QSizeF bar) { return {edgeInset, edgeFromTop, std::max(bar.width() - 2 * edgeInset, 0.0), 1}; }

} // namespace BarLayout
