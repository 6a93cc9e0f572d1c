#include "overlay/canvas/MovedInk.h"

#include "base/Raster.h"
#include "base/Vectorized.h"
#include "overlay/canvas/TilePicture.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <functional>
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

// Which of a tile's columns of pixels a rectangle holds: from one up to another.
std::pair<int, int> within(const QRect &rect, int tileColumn)
{
    return {std::max(rect.left() - tileColumn * side, 0),
            std::min(rect.right() + 1 - tileColumn * side, side)};
}

// Some rows of a tile, or of none.
struct TileRows {
    TileRows(const TilePicture *tile, int y, QRgb plainColor)
        : inked((tile ? tile->inked() : none).data() + rowWithin(y))
        , plain((tile && tile->color() == plainColor ? tile->plain() : none).data() + rowWithin(y))
    {}

    static constexpr TilePicture::Rows none{};
    const std::uint16_t *inked;
    const std::uint16_t *plain;
};

// What is on a stretch now was on one or on two before, so far to the right of where the
// left one of two tiles begins: those of both are laid in a row and moved. Where both are
// of one colour, nothing changes.
VELLUMORA_VECTORIZED void compare(std::uint16_t *changed, int rows, const TileRows &now, const TileRows &left,
                                  const TileRows &right, int stretchesRight, int alsoNext)
{
    constexpr int bits = TilePicture::stretches;
    for (int i = 0; i < rows; ++i) {
        std::uint32_t inked = (left.inked[i] | std::uint32_t(right.inked[i]) << bits) >> stretchesRight;
        std::uint32_t plain = (left.plain[i] | std::uint32_t(right.plain[i]) << bits) >> stretchesRight;
        inked |= inked >> alsoNext;
        plain &= plain >> alsoNext;
        changed[i] = static_cast<std::uint16_t>((now.inked[i] | inked) & ~(now.plain[i] & plain));
    }
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
    m_pieces.resize(std::size_t(m_own.second.second - m_own.first.second + 1));
    m_changed.resize(m_pieces.size() * std::size_t(part.height()));
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
    const QRegion own = where.translated(-m_grid.shift());
    for (auto first = own.begin(); first != own.end();) {
        const auto last
            = std::find_if(first, own.end(), [&](const QRect &rect) { return rect.top() != first->top(); });
        const Strip strip = stripOf({first, last});
        for (int y = first->top(); y <= first->bottom(); ++y)
            drawRow(raster, screen, strip, y);
        first = last;
    }
}

std::size_t MovedInk::tileAt(int column, int y) const
{
    return std::size_t((TileGrid::quotient(y, side) - m_first.first) * m_across + column - m_first.second);
}

std::size_t MovedInk::changedAt(int column, int y) const
{
    return std::size_t((column - m_own.first.second) * m_part.height() + y - m_part.top());
}

// A tile at a time, because most have never been drawn on.
void MovedInk::compareAll()
{
    const auto &[low, high] = m_own;
    const int tilesBack = TileGrid::quotient(m_way.x(), side);
    for (int column = low.second; column <= high.second; ++column)
        for (int y = m_part.top(), end = y; y <= m_part.bottom(); y = end) {
            end = std::min({tileEnd(y), tileEnd(y + m_way.y()) - m_way.y(), m_part.bottom() + 1});
            Tiles tiles{m_tiles[tileAt(column, y)]};
            for (int i = 0; i < tilesThere && column + tilesBack + i <= m_last.second; ++i)
                tiles.before[std::size_t(i)] = m_tiles[tileAt(column + tilesBack + i, y + m_way.y())];
            if (tiles.now || std::ranges::any_of(tiles.before, std::identity()))
                compareRows(tiles, column, y, end);
        }
}

void MovedInk::compareRows(const Tiles &tiles, int column, int top, int end)
{
    const QRgb color = tiles.now ? tiles.now->color() : 0;
    const int back = TileGrid::quotient(m_way.x(), stretch);
    compare(&m_changed[changedAt(column, top)], end - top, TileRows(tiles.now, top, color),
            TileRows(tiles.before[0], top + m_way.y(), color),
            TileRows(tiles.before[1], top + m_way.y(), color),
            back - TileGrid::quotient(back, TilePicture::stretches) * TilePicture::stretches,
            m_way.x() != back * stretch);
}

// Most stretches are wholly in one rectangle, which is seen once for all their rows.
MovedInk::Strip MovedInk::stripOf(std::span<const QRect> rects) const
{
    const auto &[low, high] = m_own;
    Strip strip{rects, std::vector<PixelRows::Parts>(std::size_t(high.second - low.second + 1))};
    for (const QRect &rect : rects)
        for (int column = TileGrid::quotient(rect.left(), side);
             column <= TileGrid::quotient(rect.right(), side); ++column) {
            PixelRows::Parts &parts = strip.parts[std::size_t(column - low.second)];
            const auto [begin, end] = within(rect, column);
            const auto [whole, cut] = PixelRows::partsOf(begin, end);
            parts.whole |= whole;
            parts.cut |= cut;
        }
    return strip;
}

void MovedInk::drawRow(const Raster &raster, const QImage &screen, const Strip &strip, int y)
{
    const int first = m_own.first.second;
    const QPoint corner = QPoint(first * side, y) + m_grid.shift();
    QRgb *const to = raster.at(corner.x(), corner.y());
    const QRgb *const from = pixels(screen, corner.x(), corner.y());
    const TilePicture *const *tiles = &m_tiles[tileAt(first, y)];
    const auto inkOf = [&](int column) {
        const TilePicture *tile = tiles[column];
        return tile ? tile->ink(rowWithin(y)) : PixelRows::Ink{.pixels = nullptr};
    };
    std::size_t pieces = 0;
    Bits cut = 0;
    for (int column = 0; const PixelRows::Parts &parts : strip.parts) {
        const Bits changed = m_changed[changedAt(first + column, y)];
        if (const Bits whole = changed & parts.whole; whole != 0)
            m_pieces[pieces++] = {.at = column * side, .where = whole, .ink = inkOf(column)};
        cut |= changed & parts.cut;
        ++column;
    }
    PixelRows::lay(to, from, {m_pieces.data(), pieces});
    if (cut == 0)
        return;
    for (const QRect &rect : strip.rects) {
        const int leftmost = TileGrid::quotient(rect.left(), side) - first;
        const int rightmost = TileGrid::quotient(rect.right(), side) - first;
        for (int column = leftmost; column <= rightmost; column += std::max(rightmost - leftmost, 1)) {
            const Bits part = m_changed[changedAt(first + column, y)] & strip.parts[std::size_t(column)].cut;
            const auto [begin, end] = within(rect, first + column);
            if (part != 0)
                PixelRows::lay(to + column * side, from + column * side, inkOf(column), part, begin, end);
        }
    }
}
