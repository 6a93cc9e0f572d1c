#pragma once

#include "overlay/canvas/TileGrid.h"

#include <QImage>
#include <QPoint>
#include <QRect>

#include <array>
#include <bit>
#include <cstdint>

class Raster;

// Keeps what is drawn on one tile, and on which of its blocks there is anything: most
// of a tile that a line crosses is blank, and need be neither read nor repainted.
class TilePicture {
public:
    static constexpr int blockSide = 16; // device pixels
    static constexpr int blocks = TileGrid::side / blockSide;

    [[nodiscard]] bool isNull() const { return m_image.isNull(); }
    // Returns the picture to draw on, premultiplied and transparent at first. Whoever
    // has drawn says so afterwards, by measure() or assumeFull().
    [[nodiscard]] QImage &image();
    // Takes over a picture that somebody else has drawn, to be shown with an opacity from
    // 0 to 1, in place of a blank one. It is neither copied nor looked at.
    void take(QImage picture, double opacity);
    // Looks where anything has been drawn; nothing is kept where nothing has.
    void measure();
    // Takes it that there is something everywhere, which is quicker than looking.
    void assumeFull();
    // Looks, if that has not been done.
    void settle();
    void clear() { *this = {}; }

    // Calls doWith(first column, end column) for each stretch of blocks in a row of them
    // that something is drawn on, counted in pixels from the left.
    void forInked(int blockRow, const auto &doWith) const
    {
        for (unsigned left = m_inked[std::size_t(blockRow)]; left != 0;) {
            const int first = std::countr_zero(left);
            const int end = first + std::countr_one(left >> first);
            left = left >> end << end;
            doWith(first * blockSide, end * blockSide);
        }
    }
    // Blends the picture over a part of what is there, both in device pixels of the
    // screen. The upper left corner is where the tile lies.
    void blend(const Raster &over, QPoint upperLeft, const QRect &part) const;

private:
    static constexpr std::uint32_t wholly = 255;
    static constexpr std::uint8_t allBlocks = (1 << blocks) - 1;

    QImage m_image;
    std::uint32_t m_opacity = wholly;           // that the image is still to get, of 255
    std::array<std::uint8_t, blocks> m_inked{}; // a bit a block, the leftmost lowest
    bool m_assumed = false;                     // not looked at
};
