#include "overlay/canvas/TileGrid.h"

#include <algorithm>

QRectF TileGrid::part(Cell cell) const
{
    const QRect area = pixels(cell);
    const double scale = m_space.scale();
    return m_space.fromWidget(QRectF(QPointF(area.topLeft()) / scale, QSizeF(area.size()) / scale));
}

QTransform TileGrid::toTile(Cell cell) const
{
    const QPoint origin = pixels(cell).topLeft();
    return m_space.upwards() * QTransform::fromScale(m_space.scale(), m_space.scale())
           * QTransform::fromTranslate(-origin.x(), -origin.y());
}

std::pair<TileGrid::Cell, TileGrid::Cell> TileGrid::range(const QRect &pixels) const
{
    const QRect own = pixels.translated(-m_shift);
    return {{quotient(own.top(), side), quotient(own.left(), side)},
            {quotient(own.bottom(), side), quotient(own.right(), side)}};
}

std::vector<TileGrid::Cell> TileGrid::cells(const std::vector<QRectF> &boxes) const
{
    // A mark may reach far beyond the screen; what lies there is never looked at.
    constexpr double screens = 3;
    const QRectF all = m_space.bounds();
    const QRectF reach(-screens * all.width(), -screens * all.height(), (1 + 2 * screens) * all.width(),
                       (1 + 2 * screens) * all.height());
    std::vector<Cell> found;
    for (const QRectF &box : boxes) {
        const QRectF near = box & reach;
        if (near.isEmpty())
            continue;
        const auto [low, high] = range(m_space.toDevice(near).toAlignedRect());
        for (int row = low.first; row <= high.first; ++row)
            for (int column = low.second; column <= high.second; ++column)
                found.emplace_back(row, column);
    }
    std::ranges::sort(found);
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

QRegion TileGrid::region(const std::vector<Cell> &cells) const
{
    QRegion region;
    QRect all;
    for (const Cell &cell : cells)
        all |= pixels(cell);
    // Painting some tiles too many costs less than a clip of many rectangles.
    const auto tiles
        = static_cast<std::size_t>(all.width() / side) * static_cast<std::size_t>(all.height() / side);
    if (2 * cells.size() > tiles)
        return all;
    for (auto first = cells.begin(); first != cells.end();) {
        auto last = first;
        while (last + 1 != cells.end() && (last + 1)->first == last->first
               && (last + 1)->second == last->second + 1)
            ++last;
        region += pixels(*first).united(pixels(*last));
        first = last + 1;
    }
    return region;
}
