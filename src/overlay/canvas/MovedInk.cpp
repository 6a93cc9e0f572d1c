#include "overlay/canvas/MovedInk.h"

#include "base/Raster.h"
#include "overlay/canvas/TilePicture.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <functional>
#include <ranges>
#include <tuple>

namespace {

constexpr int side = TileGrid::side;
constexpr int stretch = PixelRows::stretch;

const QRgb *pixels(const QImage &screen, int x, int y)
{
    return reinterpret_cast<const QRgb *>(screen.constScanLine(y)) + x;
}

// Where the row of tiles ends on which a row of pixels lies, and which of theirs it is.
int tileEnd(int y) { return (TileGrid::quotient(y, side) + 1) * side; }
int rowWithin(int y) { return y - TileGrid::quotient(y, side) * side; }

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
    if (column > m_last.second)
        return nullptr;
    return m_tiles[std::size_t((TileGrid::quotient(y, side) - m_first.first) * m_across + column
                               - m_first.second)];
}

PixelRows::Ink MovedInk::inkOf(int column, int y) const
{
    const TilePicture *tile = tileOf(column, y);
    return tile ? tile->ink(rowWithin(y)) : PixelRows::Ink{.pixels = nullptr};
}

MovedInk::Changed &MovedInk::changed(int column, int y)
{
    const auto &[low, high] = m_own;
    return m_changed[std::size_t((y - m_part.top()) * (high.second - low.second + 1) + column - low.second)];
}

// A tile at a time, because most have never been drawn on.
void MovedInk::compareAll()
{
    const auto &[low, high] = m_own;
    const int tilesBack = TileGrid::quotient(m_way.x(), side);
    for (int column = low.second; column <= high.second; ++column)
        for (int y = m_part.top(), end = y; y <= m_part.bottom(); y = end) {
            end = std::min({tileEnd(y), tileEnd(y + m_way.y()) - m_way.y(), m_part.bottom() + 1});
            Tiles tiles{tileOf(column, y)};
            for (int i = 0; i < tilesThere; ++i)
                tiles.before[std::size_t(i)] = tileOf(column + tilesBack + i, y + m_way.y());
            if (tiles.now || std::ranges::any_of(tiles.before, std::identity()))
                compareRows(tiles, column, y, end);
        }
}

void MovedInk::compareRows(const Tiles &tiles, int column, int top, int end)
{
    const auto rowOf = [](const TilePicture *tile, int y) {
        const PixelRows::Ink ink = tile ? tile->ink(rowWithin(y)) : PixelRows::Ink{.pixels = nullptr};
        return TileRow{.inked = ink.inked, .plain = ink.plain, .color = ink.color};
    };
    for (int y = top; y < end; ++y) {
        std::array<TileRow, tilesThere> before;
        for (int i = 0; i < tilesThere; ++i)
            before[std::size_t(i)] = rowOf(tiles.before[std::size_t(i)], y + m_way.y());
        changed(column, y) = compare(rowOf(tiles.now, y), before);
    }
}

// What is on a stretch now was on one or on two before: those of two tiles are laid in
// a row and moved. Where both are of one colour, nothing changes.
MovedInk::Changed MovedInk::compare(const TileRow &now, const std::array<TileRow, tilesThere> &before) const
{
    constexpr int bits = TilePicture::stretches;
    const int back = TileGrid::quotient(m_way.x(), stretch);
    const int within = back - TileGrid::quotient(back, bits) * bits;
    Bits inked = 0;
    Bits plain = 0;
    for (const TileRow &row : before | std::views::reverse) {
        inked = inked << bits | row.inked;
        plain = plain << bits | (row.color == now.color ? row.plain : 0);
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
        const QPoint at = QPoint(column * side, y) + m_grid.shift();
        const int begin = std::max(rect.left() - column * side, 0);
        const int end = std::min(rect.right() + 1 - column * side, side);
        PixelRows::lay(raster.at(at.x(), at.y()), pixels(screen, at.x(), at.y()), inkOf(column, y), changed,
                       begin, end);
    }
}
