#include "overlay/canvas/MarksLayer.h"

#include "marks/Kinds.h"
#include "marks/MarkFootprint.h"
#include "marks/StrokePath.h"
#include "overlay/canvas/MovedInk.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr std::int64_t idGap = std::int64_t(1) << 32; // room for marks that come in between
constexpr double nearlyWhole = 1e-3;                  // device pixels

// Whole points as well as whole pixels at the usual scales, because a window is repainted
// in points.
int sideOfCells(double scale)
{
    constexpr double dense = 1.5;
    return static_cast<int>((scale < dense ? 32 : 16) * scale);
}

bool isMosaic(const AnnotationPtr &mark) { return mark->tool == Tool::pixelate; }

bool same(const AnnotationPtr &a, const AnnotationPtr &b) { return a == b || *a == *b; }

bool isLong(const Annotation &mark)
{
    return isFreehand(mark.tool) && StrokePath::pieces(mark.points.size()) > 1;
}

// Every tile from one cell to another.
void forTiles(auto &tiles, const std::pair<TileGrid::Cell, TileGrid::Cell> &range, const auto &doWith)
{
    const auto &[low, high] = range;
    for (int row = low.first; row <= high.first; ++row) {
        const auto end = tiles.upper_bound({row, high.second});
        for (auto tile = tiles.lower_bound({row, low.second}); tile != end; ++tile)
            doWith(tile->first, tile->second);
    }
}

} // namespace

MarksLayer::Change MarksLayer::follow(const std::vector<AnnotationPtr> &drawOrder)
{
    const auto firstDrawn = std::ranges::find_if_not(drawOrder, isMosaic);
    ScreenCells moved = cells();
    QRegion drawn = followDrawn({firstDrawn, drawOrder.end()}, moved);
    followMosaics({drawOrder.begin(), firstDrawn}, moved);
    return {.drawn = std::move(drawn), .moved = moved.region()};
}

void MarksLayer::followMosaics(const std::vector<AnnotationPtr> &mosaics, ScreenCells &changed)
{
    if (std::ranges::equal(mosaics, m_mosaics, same, {}, &KeptMosaic::mark))
        return;
    for (const QRect &rect : m_covered)
        changed.add(rect);
    std::vector<KeptMosaic> before = std::exchange(m_mosaics, {});
    m_covered = {};
    for (const AnnotationPtr &mark : mosaics) {
        const auto kept = std::ranges::find_if(before, [&](const KeptMosaic &k) {
            return k.mark->moved == mark->moved && same(k.mark, mark); // the first is quickly seen
        });
        m_mosaics.push_back(
            kept != before.end()
                ? *kept
                : KeptMosaic{{Mosaic(*mark), m_space.toDevice(mark->rectFromPoints())}, mark});
        if (!m_mosaics.back().mosaic.isNull())
            m_covered += Mosaic::covered(m_mosaics.back().place);
    }
    for (const QRect &rect : std::as_const(m_covered))
        changed.add(rect);
}

// How far all marks have moved, when that is all that has happened to them and
// the picture can travel along.
std::optional<QPoint> MarksLayer::travelled(const std::vector<AnnotationPtr> &marks) const
{
    if (marks.empty() || marks.size() != m_kept.size() || same(marks.front(), m_kept.front().mark))
        return std::nullopt;
    const QPointF way = marks.front()->moved - m_kept.front().mark->moved;
    const QPointF pixels = QPointF(way.x(), -way.y()) * m_space.scale();
    const QPoint whole = pixels.toPoint();
    const auto movedAlong = [&](const AnnotationPtr &mark, const AnnotationPtr &kept) {
        const QPointF off = (mark->moved - kept->moved - way) * m_space.scale();
        return off.manhattanLength() < nearlyWhole && mark->looksLike(*kept);
    };
    const bool moved = (pixels - whole).manhattanLength() < nearlyWhole
                       && std::ranges::equal(marks, m_kept, movedAlong, {}, &Kept::mark);
    return moved ? std::optional(whole) : std::nullopt;
}

// Returns where marks have come or gone.
QRegion MarksLayer::followDrawn(const std::vector<AnnotationPtr> &marks, ScreenCells &moved)
{
    if (marks.empty())
        m_stroke.forget(); // perhaps of a selection that was given up
    if (const auto way = travelled(marks)) {
        addInked(moved);
        m_grid.moveBy(*way);
        for (std::size_t i = 0; i < marks.size(); ++i)
            m_kept[i].mark = marks[i];
        addInked(moved);
        return {};
    }
    const auto stays = std::ranges::mismatch(marks, m_kept, same, {}, &Kept::mark);
    const auto first = static_cast<std::size_t>(stays.in2 - m_kept.begin());
    std::size_t above = 0; // how many at the end stay too
    while (first + above < std::min(marks.size(), m_kept.size())
           && same(marks[marks.size() - above - 1], m_kept[m_kept.size() - above - 1].mark))
        ++above;
    QRegion changed = remove(first, m_kept.size() - above);
    for (std::size_t i = first; i < marks.size() - above; ++i) {
        if (!idFor(i)) {
            changed += remove(i, m_kept.size());
            above = 0;
        }
        changed += insert(i, marks[i]);
    }
    return changed;
}

ScreenCells MarksLayer::cells() const
{
    return {m_space.toPixels(m_space.bounds()), sideOfCells(m_space.scale())};
}

// Where anything is drawn. It is found once, because looking at every tile takes longer than
// the rest of a step.
void MarksLayer::addInked(ScreenCells &cells)
{
    if (!m_inked)
        m_inked = findInked();
    for (const QRect &rect : std::as_const(*m_inked))
        cells.add(rect.translated(m_grid.shift()));
}

// Blocks that something is drawn on, and tiles that nobody has looked at yet.
QRegion MarksLayer::findInked()
{
    QRect all;
    for (const auto &[cell, tile] : m_tiles)
        all |= m_grid.pixels(cell);
    ScreenCells cells(all, TilePicture::blockSide);
    for (auto &[cell, tile] : m_tiles) {
        tile.picture.measure();
        const QPoint corner = m_grid.pixels(cell).topLeft();
        if (!tile.complete)
            cells.add(m_grid.pixels(cell));
        for (int row = 0; row < TilePicture::blocks; ++row)
            tile.picture.forInked(row, [&](int first, int end) {
                cells.add({corner + QPoint(first, row * TilePicture::blockSide),
                           QSize(end - first, TilePicture::blockSide)});
            });
    }
    return cells.region().translated(-m_grid.shift());
}

// Takes away the marks from that one on, up to the other.
QRegion MarksLayer::remove(std::size_t from, std::size_t end)
{
    QRegion changed;
    for (std::size_t i = from; i < end; ++i) {
        changed += m_grid.region(m_kept[i].cells);
        for (const Cell &cell : m_kept[i].cells) {
            const auto tile = m_tiles.find(cell);
            std::erase(tile->second.wanted, m_kept[i].id);
            if (std::erase(tile->second.shown, m_kept[i].id) > 0) {
                tile->second.picture = {};
                tile->second.shown.clear(); // it holds none of them any more
            }
            tile->second.complete = tile->second.shown == tile->second.wanted;
            if (tile->second.wanted.empty())
                m_tiles.erase(tile);
        }
    }
    m_inked.reset();
    const auto begin = m_kept.begin();
    m_kept.erase(begin + static_cast<std::ptrdiff_t>(from), begin + static_cast<std::ptrdiff_t>(end));
    return changed;
}

// An id for a mark that comes in at that place; absent when those beside it leave
// no room.
std::optional<MarksLayer::Id> MarksLayer::idFor(std::size_t place) const
{
    if (place == m_kept.size())
        return m_kept.empty() ? 0 : m_kept.back().id + idGap;
    const Id above = m_kept[place].id;
    const Id below = place > 0 ? m_kept[place - 1].id : above - 2 * idGap;
    return above - below > 1 ? std::optional(below + (above - below) / 2) : std::nullopt;
}

QRegion MarksLayer::insert(std::size_t place, const AnnotationPtr &mark)
{
    const bool drawnAlready = place == m_kept.size() && isLong(*mark) && m_stroke.complete(*mark);
    const auto kept = m_kept.insert(m_kept.begin() + static_cast<std::ptrdiff_t>(place),
                                    {mark, *idFor(place), m_grid.cells(MarkFootprint::boxes(*mark))});
    for (const Cell &cell : kept->cells) {
        Tile &tile = m_tiles[cell];
        tile.wanted.insert(std::ranges::upper_bound(tile.wanted, kept->id), kept->id);
        tile.complete = false;
        if (drawnAlready)
            prepare(cell, tile, true);
    }
    m_stroke.forget();
    m_inked.reset();
    return m_grid.region(kept->cells);
}

void MarksLayer::prepareFor(const Annotation &stroke)
{
    if (isLong(stroke))
        m_stroke.follow(stroke);
}

// Draws what is missing on top, or everything anew when something was taken away.
void MarksLayer::prepare(Cell cell, Tile &tile, bool strokeIsLast)
{
    if (tile.complete)
        return;
    if (std::ranges::mismatch(tile.shown, tile.wanted).in1 != tile.shown.end()) {
        tile.picture.clear();
        tile.shown.clear();
    }
    for (std::size_t i = tile.shown.size(); i < tile.wanted.size(); ++i) {
        const auto kept = std::ranges::lower_bound(m_kept, tile.wanted[i], {}, &Kept::id);
        const Annotation &mark = *kept->mark;
        if (!isLong(mark))
            paint(cell, tile, mark);
        else if (strokeIsLast && i + 1 == tile.wanted.size())
            paint(tile, mark, m_stroke.take(cell));
        else
            paint(tile, mark, StrokePicture(m_grid).drawTile(mark, cell));
    }
    tile.shown = tile.wanted;
    tile.complete = true;
    m_inked.reset();
    // Letting go of a stroke is not the time to look where it has been.
    if (strokeIsLast && !tile.picture.isNull())
        tile.picture.assumeFull();
    else
        tile.picture.measure();
}

void MarksLayer::paint(Cell cell, Tile &tile, const Annotation &mark) const
{
    QPainter painter(&tile.picture.image());
    painter.setTransform(m_grid.toTile(cell));
    mark.draw(painter, m_grid.part(cell));
}

// A long stroke is put together first, as it is when it is drawn by hand.
void MarksLayer::paint(Tile &tile, const Annotation &mark, QImage stroke)
{
    if (stroke.isNull())
        return;
    if (tile.picture.isNull())
        return tile.picture.take(std::move(stroke), StrokePath::opacity(mark));
    QPainter painter(&tile.picture.image());
    painter.setOpacity(StrokePath::opacity(mark));
    painter.drawImage(0, 0, stroke);
}

void MarksLayer::prepare(const QRegion &exposed)
{
    for (auto &[cell, tile] : m_tiles)
        if (!tile.complete && exposed.intersects(m_grid.pixels(cell)))
            prepare(cell, tile);
}

void MarksLayer::draw(const Raster &raster, const QRegion &exposed) const
{
    fillMosaics(raster, exposed);
    for (const QRect &rect : exposed)
        forTiles(m_tiles, m_grid.range(rect), [&](Cell cell, const Tile &tile) {
            tile.picture.blend(raster, m_grid.pixels(cell).topLeft(), rect);
        });
}

void MarksLayer::drawMoved(const Raster &raster, const QImage &screen, const QRegion &exposed,
                           QPoint way) const
{
    if (exposed.isEmpty())
        return;
    MovedInk ink(m_grid, exposed.boundingRect(), way);
    forTiles(m_tiles, ink.range(), [&](Cell cell, const Tile &tile) { ink.add(cell, tile.picture); });
    ink.draw(raster, screen, exposed);
}

// From the uppermost down, so that what is covered is neither worked out nor written.
void MarksLayer::fillMosaics(const Raster &raster, const QRegion &exposed) const
{
    const QRect box = exposed.boundingRect();
    QRegion open = exposed;
    for (auto tessera = m_mosaics.rbegin(); tessera != m_mosaics.rend() && !open.isEmpty(); ++tessera) {
        const QRect place = Mosaic::covered(tessera->place);
        if (tessera->mosaic.isNull() || !place.intersects(box)) // most are elsewhere
            continue;
        for (const QRect &rect : open &place)
            tessera->mosaic.fill(raster, tessera->place, rect);
        open -= place;
    }
}
