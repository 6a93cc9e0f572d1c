#pragma once

#include "base/PixelRows.h"
#include "overlay/canvas/TileGrid.h"

#include <QImage>
#include <QPoint>
#include <QRect>

#include <array>
#include <bit>
#include <cstdint>
#include <vector>

class Raster;

// Keeps what is drawn on one tile. Most of a tile that a line crosses is blank or of one
// colour: once it has been looked at, only the rest is kept, pixel by pixel, and need be
// read. What is blank need not be repainted either.
class TilePicture {
public:
    static constexpr int blockSide = 16; // device pixels
    static constexpr int blocks = TileGrid::side / blockSide;
    static constexpr int stretches = TileGrid::side / PixelRows::stretch; // in a row

    [[nodiscard]] bool isNull() const { return m_image.isNull() && !m_packed; }
    // Returns the picture to draw on, premultiplied and transparent at first. Whoever
    // has drawn says so afterwards, by measure() or assumeFull().
    [[nodiscard]] QImage &image();
    // Takes over a picture that somebody else has drawn, to be shown with an opacity from
    // 0 to 1, in place of a blank one. It is neither copied nor looked at.
    void take(QImage picture, double opacity);
    // Looks where anything has been drawn, if that has not been done; nothing is kept
    // where nothing has.
    void measure();
    // Takes it that there is something everywhere, which is quicker than looking. Does
    // nothing where nothing has been drawn since somebody looked.
    void assumeFull();
    void clear() { *this = {}; }

    // Calls doWith(first column, end column) for each stretch of blocks in a row of them
    // that something is drawn on, counted in pixels from the left.
    void forInked(int blockRow, const auto &doWith) const
    {
        forRuns(m_blocks[std::size_t(blockRow)],
                [&](int first, int end) { doWith(first * blockSide, end * blockSide); });
    }
    // What follows must have been looked at, and stays valid until something else is drawn.

    // Returns what is drawn on a row.
    [[nodiscard]] PixelRows::Ink ink(int y) const
    {
        Q_ASSERT(m_image.isNull());
        const auto row = std::size_t(y);
        return {.pixels = m_ink.data() + m_first[row] * PixelRows::stretch,
                .inked = m_inked[row],
                .plain = m_plain[row],
                .color = m_color};
    }
    // Of each row a bit a stretch, the leftmost lowest.
    using Rows = std::array<std::uint16_t, TileGrid::side>;
    // Returns where there is anything, and where nothing but the plain colour.
    [[nodiscard]] const Rows &inked() const { return m_inked; }
    [[nodiscard]] const Rows &plain() const { return m_plain; }
    [[nodiscard]] QRgb color() const { return m_color; }
    // Blends the picture over a part of what is there, both in device pixels of the
    // screen. The upper left corner is where the tile lies.
    void blend(const Raster &over, QPoint upperLeft, const QRect &part) const;

private:
    static constexpr std::uint32_t wholly = 255;

    static void forRuns(unsigned bits, const auto &doWith)
    {
        while (bits != 0) {
            const int first = std::countr_zero(bits);
            const int end = first + std::countr_one(bits >> first);
            bits = bits >> end << end;
            doWith(first, end);
        }
    }
    void fade();
    void unpack();
    void packRow(int y);
    void blendImage(QRgb *to, int y, int begin, int end) const;

    QImage m_image;                   // null once it has been looked at
    std::uint32_t m_opacity = wholly; // that the image is still to get, of 255
    bool m_packed = false;
    std::vector<QRgb> m_ink; // stretch by stretch: those with ink that are not plain, row by row
    Rows m_inked{};
    Rows m_plain{};
    std::array<std::uint16_t, TileGrid::side> m_first{}; // which stretch of m_ink is a row's first
    std::array<std::uint8_t, blocks> m_blocks{};         // a bit a block, the leftmost lowest
    QRgb m_color = 0;                                    // premultiplied; 0 while no stretch is plain
};
