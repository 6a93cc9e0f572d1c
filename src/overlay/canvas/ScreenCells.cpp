#include "overlay/canvas/ScreenCells.h"

#include <algorithm>

namespace {

int cellsFor(int pixels, int side) { return (pixels + side - 1) / side; }

} // namespace

ScreenCells::ScreenCells(const QRect &screen, int side)
    : m_screen(screen)
    , m_side(side)
    , m_columns(cellsFor(screen.width(), side))
    , m_held(std::size_t(m_columns) * std::size_t(cellsFor(screen.height(), side)))
{}

void ScreenCells::add(const QRect &pixels)
{
    const QRect part = (pixels & m_screen).translated(-m_screen.topLeft());
    if (part.isEmpty())
        return;
    for (int row = part.top() / m_side; row <= part.bottom() / m_side; ++row) {
        const auto begin = m_held.begin() + std::ptrdiff_t(row) * m_columns;
        std::fill(begin + part.left() / m_side, begin + part.right() / m_side + 1, std::uint8_t(1));
    }
}

// Rows that are alike become one, as regions have it.
QRegion ScreenCells::region() const
{
    std::vector<QRect> rects;
    const auto rowAt = [this](int y) { return m_held.begin() + std::ptrdiff_t(y / m_side) * m_columns; };
    for (int top = 0; top < m_screen.height();) {
        int bottom = top + m_side;
        while (bottom < m_screen.height() && std::equal(rowAt(top), rowAt(top) + m_columns, rowAt(bottom)))
            bottom += m_side;
        const auto end = rowAt(top) + m_columns;
        for (auto first = std::find(rowAt(top), end, 1); first != end;) {
            const auto last = std::find(first, end, 0);
            const auto columns = static_cast<int>(last - first);
            const auto left = static_cast<int>(first - rowAt(top));
            rects.emplace_back(QPoint(left * m_side, top) + m_screen.topLeft(),
                               QSize(columns * m_side, bottom - top));
            first = std::find(last, end, 1);
        }
        top = bottom;
    }
    QRegion region;
    region.setRects(rects.data(), static_cast<int>(rects.size()));
    return region & m_screen;
}
