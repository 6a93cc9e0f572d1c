#include "overlay/canvas/StrokePicture.h"

#include "marks/MarkFootprint.h"
#include "marks/StrokePath.h"

#include <QPainter>

#include <algorithm>
#include <utility>

void StrokePicture::forget()
{
    m_begun.reset();
    m_pieces = 0;
    m_tiles.clear();
}

// A stroke that has only grown still has its points where it had them.
bool StrokePicture::isPartOf(const Annotation &stroke) const
{
    const qsizetype last = StrokePath::pointsOf(m_pieces) - 1;
    return m_begun && m_begun->tool == stroke.tool && m_begun->color == stroke.color
           && m_begun->width == stroke.width && m_begun->moved == stroke.moved && !stroke.original
           && last < stroke.points.size()
           && m_begun->points == QList{stroke.points.first(), stroke.points.at(last)};
}

void StrokePicture::follow(const Annotation &stroke)
{
    if (!isPartOf(stroke))
        forget();
    const qsizetype finished
        = stroke.points.isEmpty() ? 0 : (stroke.points.size() - 1) / (StrokePath::pointsOf(1) - 1);
    while (m_pieces < finished)
        add(stroke, m_pieces);
}

bool StrokePicture::complete(const Annotation &stroke)
{
    if (!isPartOf(stroke))
        return false;
    while (m_pieces < StrokePath::pieces(stroke.points.size()))
        add(stroke, m_pieces);
    return true;
}

void StrokePicture::add(const Annotation &stroke, qsizetype piece)
{
    const qsizetype first = StrokePath::pointsOf(piece) - 1;
    const qsizetype last = std::min(StrokePath::pointsOf(piece + 1) - 1, stroke.points.size() - 1);
    Annotation stretch = stroke;
    stretch.points = stroke.points.mid(first, last - first + 1);
    for (const TileGrid::Cell &cell : m_grid.cells(MarkFootprint::boxes(stretch)))
        draw(stroke, piece, cell);
    m_pieces = piece + 1;
    m_begun.emplace(stroke.tool, stroke.color, stroke.width,
                    QList{stroke.points.first(), stroke.points.at(last)});
    m_begun->moved = stroke.moved;
}

void StrokePicture::draw(const Annotation &stroke, qsizetype piece, TileGrid::Cell cell)
{
    QImage &tile = m_tiles[cell];
    if (tile.isNull()) {
        tile = QImage(TileGrid::side, TileGrid::side, QImage::Format_ARGB32_Premultiplied);
        tile.fill(Qt::transparent);
    }
    QPainter painter(&tile);
    painter.setTransform(m_grid.toTile(cell));
    StrokePath::drawPiece(painter, stroke, piece, m_grid.part(cell));
}

QImage StrokePicture::drawTile(const Annotation &stroke, TileGrid::Cell cell)
{
    forget();
    for (qsizetype piece = 0; piece < StrokePath::pieces(stroke.points.size()); ++piece)
        draw(stroke, piece, cell);
    return take(cell);
}

QImage StrokePicture::take(TileGrid::Cell cell)
{
    const auto found = m_tiles.find(cell);
    return found == m_tiles.end() ? QImage() : std::exchange(found->second, {});
}
