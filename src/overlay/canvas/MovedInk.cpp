#include "overlay/canvas/MovedInk.h"

#include "base/Raster.h"
#include "overlay/canvas/TilePicture.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <bit>
#include <tuple>

namespace {

constexpr int side = TileGrid::side;
constexpr int stretch = PixelRows::stretch;

const QRgb *pixels(const QImage &screen, int x, int y)
{
    return reinterpret_cast<const QRgb *>(screen.constScanLine(y)) + x;
}

} // namespace

MovedInk::MovedInk(const TileGrid &grid, const QRect &part, QPoint way)
    : m_grid(grid)
    , m_part(part.translated(-grid.shift()))
    , m_way(way)
    , m_own(grid.range(part))
{
    std::tie(m_first, m_last) = grid.range(part | part.translated(way));
    --m_first.second; // a stretch may have been on two tiles
    m_across = m_last.second - m_first.second + 1;
    m_tiles.resize(std::size_t(m_across) * std::size_t(m_last.first - m_first.first + 1));
    m_changed.resize(std::size_t(m_own.second.second - m_own.first.second + 1) * std::size_t(part.height()));
}

void MovedInk::add(TileGrid::Cell cell, const TilePicture &picture)
{
    if (!picture.isNull())
        m_tiles[std::size_t((cell.first - m_first.first) * m_across + cell.second - m_first.second)]
            = &picture;
}

void MovedInk::draw(const Raster &raster, const QImage &screen, const QRegion &where)
{
    compareAll();
    for (const QRect &shown : where) {
        const QRect rect = shown.translated(-m_grid.shift());
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            drawRow(raster, screen, rect, y);
    }
}

const TilePicture *MovedInk::tileOf(int column, int y) const
{
    return m_tiles[std::size_t((TileGrid::quotient(y, side) - m_first.first) * m_across + column
                               - m_first.second)];
}

PixelRows::Ink MovedInk::inkOf(int column, int y) const
{
    const TilePicture *tile = tileOf(column, y);
    return tile ? tile->ink(y - TileGrid::quotient(y, side) * side) : PixelRows::Ink{.pixels = nullptr};
}

MovedInk::Changed &MovedInk::changed(int column, int y)
{
    const auto &[low, high] = m_own;
    return m_changed[std::size_t((y - m_part.top()) * (high.second - low.second + 1) + column - low.second)];
}

void MovedInk::compareAll()
{
    const auto &[low, high] = m_own;
    const int tilesBack = TileGrid::quotient(m_way.x(), side);
    std::vector<TileRow> now(std::size_t(m_across) + 2); // two blank ones behind the last
    std::vector<TileRow> before(now.size());
    for (int y = m_part.top(); y <= m_part.bottom(); ++y) {
        read(now, y);
        read(before, y + m_way.y());
        for (int column = low.second; column <= high.second; ++column) {
            const int i = column - m_first.second;
            changed(column, y) = compare(now[std::size_t(i)], &before[std::size_t(i + tilesBack)]);
        }
    }
}

void MovedInk::read(std::vector<TileRow> &row, int y) const
{
    for (int i = 0; i < m_across; ++i) {
        const PixelRows::Ink ink = inkOf(m_first.second + i, y);
        row[std::size_t(i)] = {.inked = ink.inked, .plain = ink.plain, .color = ink.color};
    }
}

// What is on a stretch now was on one or on two before: those of three tiles are laid in
// a row and moved. Where both are of one colour, nothing changes.
MovedInk::Changed MovedInk::compare(const TileRow &now, const TileRow *before) const
{
    constexpr int bits = TilePicture::stretches;
    const int back = TileGrid::quotient(m_way.x(), stretch);
    const int within = back - TileGrid::quotient(back, bits) * bits;
    Bits inked = 0;
    Bits plain = 0;
    for (int i = 2; i >= 0; --i) {
        inked = inked << bits | before[i].inked;
        plain = plain << bits | (before[i].color == now.color ? before[i].plain : 0);
    }
    inked >>= within;
    plain >>= within;
    if (m_way.x() != back * stretch) {
        inked |= inked >> 1;
        plain &= plain >> 1;
    }
    return static_cast<Changed>((now.inked | inked) & ~(now.plain & plain));
}

void MovedInk::drawRow(const Raster &raster, const QImage &screen, const QRect &rect, int y)
{
    for (int column = TileGrid::quotient(rect.left(), side); column <= TileGrid::quotient(rect.right(), side);
         ++column) {
        const unsigned changed = this->changed(column, y);
        if (changed == 0)
            continue;
        const PixelRows::Ink ink = inkOf(column, y);
        const QPoint at = QPoint(column * side, y) + m_grid.shift();
        QRgb *to = raster.at(at.x(), at.y());
        const QRgb *from = pixels(screen, at.x(), at.y());
        // Where the rectangle begins or ends within a stretch.
        const auto drawSome = [&](int begin, int end) {
            const unsigned bit = 1U << begin / stretch;
            if (begin >= end || (changed & bit) == 0)
                return;
            PixelRows::copy(to + begin, from + begin, end - begin);
            if ((ink.inked & bit) == 0)
                return;
            std::array<QRgb, side> row;
            PixelRows::unpack(row.data(), ink);
            PixelRows::blend(to + begin, row.data() + begin, end - begin);
        };
        const int begin = std::max(rect.left() - column * side, 0);
        const int end = std::min(rect.right() + 1 - column * side, side);
        const int firstWhole = (begin + stretch - 1) / stretch;
        const int endWhole = end / stretch;
        if (firstWhole > endWhole) {
            drawSome(begin, end);
            continue;
        }
        drawSome(begin, firstWhole * stretch);
        drawSome(endWhole * stretch, end);
        PixelRows::lay(to, from, ink, changed & ((1U << endWhole) - (1U << firstWhole)));
    }
}
