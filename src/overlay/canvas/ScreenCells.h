#pragma once

#include <QRect>
#include <QRegion>

#include <cstdint>
#include <vector>

// Gathers many small parts of the screen into one region that is quick to work with:
// of square cells, however the parts overlap. In device pixels, y downwards.
class ScreenCells {
public:
    // Takes the part of the screen that counts and the side of a cell.
    ScreenCells(const QRect &screen, int side);

    void add(const QRect &pixels);
    // Returns the cells that hold what has been added.
    [[nodiscard]] QRegion region() const;

private:
    QRect m_screen;
    int m_side;
    int m_columns;
    std::vector<std::uint8_t> m_held; // row by row from the top, 1 where something is
};
