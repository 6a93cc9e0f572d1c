#pragma once

#include "marks/Annotation.h"
#include "marks/Pixelation.h"
#include "overlay/canvas/StrokePicture.h"
#include "overlay/canvas/TileGrid.h"

#include <QImage>
#include <QRegion>

#include <map>
#include <optional>
#include <vector>

class QPainter;

// The picture of all finished marks, which the screen and the copy are both made
// of. It is kept in tiles, each made when it is first looked at, and travels with
// the selection instead of being drawn anew. Mosaics are not part of it: they show
// the screen below them, wherever they are. Everything here is in device pixels
// of the screen, y downwards.
class MarksLayer {
public:
    // The space must outlive it.
    explicit MarksLayer(const ViewSpace &space) : m_space(space) {}
    Q_DISABLE_COPY_MOVE(MarksLayer)

    // Shows these marks from now on, in the order in which they are drawn. Returns
    // where the screen looks different now.
    QRegion follow(const std::vector<AnnotationPtr> &drawOrder);
    // Prepares for the freehand stroke in hand becoming one of the marks.
    void prepareFor(const Annotation &stroke);

    // Makes what is needed to paint a part of the screen.
    void prepare(const QRegion &exposed);
    // Paints a part of what was prepared; the painter counts in pixels. Several
    // threads may do so at once.
    void draw(QPainter &painter, const QRegion &exposed) const;
    // What mosaics hide of the screen.
    [[nodiscard]] QRegion covered() const;

private:
    using Cell = TileGrid::Cell;
    struct Kept {
        AnnotationPtr mark;
        int id; // ascending
        std::vector<Cell> cells;
    };
    struct Tile {
        QImage picture;
        std::vector<int> wanted; // ids of the marks that touch it
        std::vector<int> shown;  // on the picture
    };
    struct Tessera {
        AnnotationPtr mark;
        Mosaic mosaic;
        QRectF place;
    };

    QRegion followMosaics(const std::vector<AnnotationPtr> &mosaics);
    QRegion followDrawn(const std::vector<AnnotationPtr> &marks);
    [[nodiscard]] std::optional<QPoint> travelled(const std::vector<AnnotationPtr> &marks) const;
    [[nodiscard]] std::vector<Cell> inked() const;
    QRegion remove(std::size_t from);
    QRegion append(const AnnotationPtr &mark);
    void prepare(Cell cell, Tile &tile, bool strokeIsLast = false);
    void paint(Cell cell, Tile &tile, const Annotation &mark, bool fromStroke) const;

    void drawMosaics(QPainter &painter, const QRegion &exposed) const;

    const ViewSpace &m_space;
    TileGrid m_grid{m_space};
    StrokePicture m_stroke{m_grid};
    std::vector<Kept> m_kept;
    std::map<Cell, Tile> m_tiles; // those that marks touch
    std::vector<Tessera> m_mosaics;
    int m_nextId = 0;
};
