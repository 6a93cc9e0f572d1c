#pragma once

#include "marks/Annotation.h"
#include "marks/Pixelation.h"
#include "overlay/canvas/ScreenCells.h"
#include "overlay/canvas/StrokePicture.h"
#include "overlay/canvas/TileGrid.h"
#include "overlay/canvas/TilePicture.h"

#include <QRegion>

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

class Raster;

// Keeps the picture of all finished marks, from which both the screen and the copy
// are made. The picture consists of tiles, each made when it is first looked at,
// and moves with the selection instead of being drawn anew. Mosaics are not part of
// the tiles: they show the screen below them, wherever they are. Everything here is
// in device pixels of the screen, y downwards.
class MarksLayer {
public:
    // Takes the space, which must outlive this object.
    explicit MarksLayer(const ViewSpace &space) : m_space(space) {}
    Q_DISABLE_COPY_MOVE(MarksLayer)

    // Pixels that look different now.
    struct Change {
        QRegion drawn; // because marks have come or gone
        QRegion moved; // because all have moved along with the selection, or because of mosaics

        [[nodiscard]] QRegion all() const { return drawn + moved; }
    };

    // Shows these marks from now on, in the order in which they are drawn.
    Change follow(const std::vector<AnnotationPtr> &drawOrder);
    // Returns how far the marks have moved in all since they were drawn.
    [[nodiscard]] QPoint shift() const { return m_grid.shift(); }
    // Prepares for the freehand stroke being drawn to become one of the marks.
    void prepareFor(const Annotation &stroke);

    // Makes the tiles that are needed to paint a part of the screen.
    void prepare(const QRegion &exposed);
    // Puts a part of what has been prepared over what is there. Several threads may
    // call this at once.
    void draw(const Raster &raster, const QRegion &exposed) const;
    // Does the same where the raster still shows these marks on this screen, but that much
    // of the way back: writes only what is different. No mosaics are drawn.
    void drawMoved(const Raster &raster, const QImage &screen, const QRegion &exposed, QPoint way) const;
    // Returns the part of the screen that mosaics hide.
    [[nodiscard]] const QRegion &covered() const { return m_covered; }

private:
    using Cell = TileGrid::Cell;
    using Id = std::int64_t;
    struct Kept {
        AnnotationPtr mark;
        Id id; // ascending, with room between them
        std::vector<Cell> cells;
    };
    struct Tile {
        TilePicture picture;    // null while nothing is drawn on it
        std::vector<Id> wanted; // ids of the marks that touch it
        std::vector<Id> shown;  // ids of the marks that are on the picture
        bool complete = false;  // these are the same, which takes long to see in every step
    };
    struct KeptMosaic : Tessera {
        AnnotationPtr mark;
    };

    void followMosaics(const std::vector<AnnotationPtr> &mosaics, ScreenCells &changed);
    QRegion followDrawn(const std::vector<AnnotationPtr> &marks, ScreenCells &moved);
    [[nodiscard]] std::optional<QPoint> travelled(const std::vector<AnnotationPtr> &marks) const;
    [[nodiscard]] ScreenCells cells() const;
    void addInked(ScreenCells &cells);
    [[nodiscard]] QRegion findInked();
    QRegion remove(std::size_t from, std::size_t end);
    [[nodiscard]] std::optional<Id> idFor(std::size_t place) const;
    QRegion insert(std::size_t place, const AnnotationPtr &mark);
    void prepare(Cell cell, Tile &tile, bool strokeIsLast = false);
    void paint(Cell cell, Tile &tile, const Annotation &mark) const;
    static void paint(Tile &tile, const Annotation &mark, QImage stroke);

    void fillMosaics(const Raster &raster, const QRegion &exposed) const;

    const ViewSpace &m_space;
    TileGrid m_grid{m_space};
    StrokePicture m_stroke{m_grid};
    std::vector<Kept> m_kept;
    std::map<Cell, Tile> m_tiles; // those that marks touch
    std::vector<KeptMosaic> m_mosaics;
    QRegion m_covered;
    std::optional<QRegion> m_inked; // blocks, in pixels of the plane; absent when tiles have changed
};
