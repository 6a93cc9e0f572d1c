#pragma once

#include "marks/Annotation.h"
#include "overlay/canvas/TileGrid.h"

#include <QImage>

#include <map>
#include <optional>

// Keeps the picture of one long freehand stroke in its full colour, tile by tile.
// Each piece of the stroke is added once, as soon as it is finished, so that the
// end of the stroke does not have to draw it all again.
class StrokePicture {
public:
    // Takes the grid, which must outlive this object and must not move while a
    // stroke is drawn.
    explicit StrokePicture(const TileGrid &grid) : m_grid(grid) {}

    // Adds the pieces that have been finished since the last call. A stroke that is
    // not the same one, grown, starts a new picture.
    void follow(const Annotation &stroke);
    // Adds the last piece as well. Returns false when the picture shows another
    // stroke.
    bool complete(const Annotation &stroke);
    // Returns one tile of any stroke and discards everything else.
    [[nodiscard]] QImage drawTile(const Annotation &stroke, TileGrid::Cell cell);
    // Gives away the picture of one tile, in the stroke's full colour; null where the
    // stroke does not touch it.
    [[nodiscard]] QImage take(TileGrid::Cell cell);
    void forget();

private:
    [[nodiscard]] bool isPartOf(const Annotation &stroke) const;
    void add(const Annotation &stroke, qsizetype piece);
    void draw(const Annotation &stroke, qsizetype piece, TileGrid::Cell cell);

    const TileGrid &m_grid;
    std::optional<Annotation>
        m_begun;            // the stroke with only the first and the last point of what the picture shows
    qsizetype m_pieces = 0; // on the picture
    std::map<TileGrid::Cell, QImage> m_tiles;
};
