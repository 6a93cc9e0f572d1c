#pragma once

#include "marks/Annotation.h"
#include "overlay/canvas/TileGrid.h"

#include <QImage>

#include <map>
#include <optional>

// The picture of one long freehand stroke in its full colour, tile by tile. Each
// piece of the stroke is put on it once, as soon as it is finished, so that
// letting go of the stroke does not have to draw all of it again.
class StrokePicture {
public:
    // The grid must outlive it and stay where it is meanwhile.
    explicit StrokePicture(const TileGrid &grid) : m_grid(grid) {}

    // Takes up the pieces that have been finished since. The stroke has only
    // grown, or is another one.
    void follow(const Annotation &stroke);
    // Takes up the last piece as well. Returns false when it is not that stroke.
    bool complete(const Annotation &stroke);
    // Draws one tile of any stroke, instead of what is there.
    void drawTile(const Annotation &stroke, TileGrid::Cell cell);
    // Null where the stroke does not come by.
    [[nodiscard]] const QImage *tile(TileGrid::Cell cell) const;
    void forget();

private:
    [[nodiscard]] bool isPartOf(const Annotation &stroke) const;
    void add(const Annotation &stroke, qsizetype piece);
    void draw(const Annotation &stroke, qsizetype piece, TileGrid::Cell cell);

    const TileGrid &m_grid;
    std::optional<Annotation> m_begun; // with the first and the last point of what is on the picture
    qsizetype m_pieces = 0;            // on the picture
    std::map<TileGrid::Cell, QImage> m_tiles;
};
