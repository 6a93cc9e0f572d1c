#pragma once

#include "base/PixelRows.h"
#include "overlay/canvas/TileGrid.h"

#include <QPoint>
#include <QRect>
#include <QRegion>

#include <array>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

class QImage;
class Raster;
class TilePicture;

// Repaints a part of the screen on which all marks have moved along, and nothing else
// has changed: it writes where there is ink now or was before, and leaves alone what
// stays the same. Everything is in device pixels.
class MovedInk {
public:
    // Takes the grid, which must outlive this object, the part, and how far its tiles
    // have moved to where they are.
    MovedInk(const TileGrid &grid, const QRect &part, QPoint way);

    // Returns the first and the last tile that was or is on the part.
    [[nodiscard]] std::pair<TileGrid::Cell, TileGrid::Cell> range() const { return {m_first, m_last}; }
    // Takes the picture of one of these tiles, which must outlive this object. Tiles
    // without a picture are left out.
    void add(TileGrid::Cell cell, const TilePicture &picture);
    // Writes what is different in a region of the part. The raster still shows the marks
    // where they were, on this picture of the screen.
    void draw(const Raster &raster, const QImage &screen, const QRegion &where);

private:
    // The stretches of one row of a tile, a bit each as PixelRows has it; those of two
    // tiles side by side have room.
    using Bits = std::uint32_t;
    using Changed = std::uint16_t; // the same stretches, where the screen is to be written
    // The tile on a place, and those that were there; null where nothing is drawn.
    static constexpr int tilesThere = 2;
    struct Tiles {
        const TilePicture *now = nullptr;
        std::array<const TilePicture *, tilesThere> before{};
    };
    // Rectangles side by side and what they hold of each tile from the first column.
    struct Strip {
        std::span<const QRect> rects;
        std::vector<PixelRows::Parts> parts;
    };

    [[nodiscard]] std::size_t tileAt(int column, int y) const;
    [[nodiscard]] std::size_t changedAt(int column, int y) const;
    void compareAll();
    void compareRows(const Tiles &tiles, int column, int top, int end);
    [[nodiscard]] Strip stripOf(std::span<const QRect> rects) const;
    void drawRow(const Raster &raster, const QImage &screen, const Strip &strip, int y);

    const TileGrid &m_grid;
    const QRect m_part; // of the plane that the grid cuts
    const QPoint m_way;
    const std::pair<TileGrid::Cell, TileGrid::Cell> m_own; // tiles on the part now
    TileGrid::Cell m_first;
    TileGrid::Cell m_last;
    int m_across;                             // how many tiles from the first to the last column
    std::vector<const TilePicture *> m_tiles; // row by row from the first
    std::vector<Changed> m_changed;           // of the tiles on the part, column by column
    std::vector<PixelRows::Piece> m_pieces;   // of the row being drawn
};
