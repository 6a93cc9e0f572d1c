#pragma once

#include "base/ViewSpace.h"

#include <QPoint>
#include <QRect>
#include <QRectF>
#include <QTransform>

#include <utility>
#include <vector>

// Cuts the plane that marks are kept on into square tiles. The plane moves with the
// selection: it lies on the screen, shifted by whole device pixels.
class TileGrid {
public:
    using Cell = std::pair<int, int>; // row and column of a tile, counted from the screen's top left corner

    static constexpr int side = 128; // side of a tile, device pixels

    // Returns how many whole tiles, or other lengths, lie before a pixel: rounded down,
    // also below nothing.
    [[nodiscard]] static int quotient(int pixel, int by)
    {
        return pixel >= 0 ? pixel / by : (pixel + 1) / by - 1;
    }

    explicit TileGrid(const ViewSpace &space) : m_space(space) {}

    [[nodiscard]] QPoint shift() const { return m_shift; }
    void moveBy(QPoint pixels) { m_shift += pixels; }

    // Returns where the tile lies on the screen now, in device pixels.
    [[nodiscard]] QRect pixels(Cell cell) const
    {
        return {QPoint(cell.second, cell.first) * side + m_shift, QSize(side, side)};
    }
    // Returns where the tile lies on the screen now, in view points.
    [[nodiscard]] QRectF part(Cell cell) const;
    // Returns the transform from view points to the tile's own pixels.
    [[nodiscard]] QTransform toTile(Cell cell) const;

    // Returns the first and the last tile that a part of the screen touches, given
    // in device pixels.
    [[nodiscard]] std::pair<Cell, Cell> range(const QRect &pixels) const;
    // Returns all tiles that the boxes, in view points, touch, in ascending order
    // and without repetition.
    [[nodiscard]] std::vector<Cell> cells(const std::vector<QRectF> &boxes) const;
    // Returns a region that holds these tiles, and perhaps others between them, in
    // device pixels. The cells must be in ascending order.
    [[nodiscard]] QRegion region(const std::vector<Cell> &cells) const;

private:
    const ViewSpace &m_space;
    QPoint m_shift; // device pixels
};
