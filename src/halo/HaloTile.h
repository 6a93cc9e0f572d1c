#pragma once

#include "halo/HaloColors.h"

#include <QRect>
#include <QRgb>

#include <cstdint>
#include <vector>

class QImage;
class QPainter;
class Raster;

// Holds the glow over a rectangle of device pixels: how much of the glow's colour
// each pixel takes, and in which direction from the middle of the selection it
// lies. Both stay the same while the colours turn, so a frame only looks the
// colours up. A tile with a ground need not even read the screen, whose rows are
// far apart in memory.
struct HaloTile {
    // Changes the rectangle. The former contents of the tile become invalid.
    void setPixels(const QRect &rect);

    // Stores what shows through the glow, taken from an RGB32 picture of just this
    // rectangle.
    void setGround(const QImage &picture);

    // Returns the index of a pixel in the vectors; y counts downwards as in the
    // rectangle.
    [[nodiscard]] std::size_t indexOf(int x, int y) const;

    // Blends a part of the tile, which lies that far from where it was computed, over what
    // has been painted there.
    void blend(const Raster &raster, const QRect &part, QPoint way, const HaloColors::Table &colors) const;
    // Paints a part of the tile with a painter that counts in device pixels:
    // blended over what is already there or, with a ground, in its place.
    void paint(QPainter &painter, const QRect &part, const HaloColors::Table &colors) const;

    QRect pixels;
    std::vector<std::uint8_t> coverage;   // row by row from the top; 255 is the colour alone
    std::vector<std::uint16_t> direction; // index into the table of colours
    std::vector<QRgb> ground;             // what shows through the glow; empty without a ground

private:
    void lookUp(QRgb *line, std::size_t from, std::size_t count, const HaloColors::Table &colors) const;
    void cover(QRgb *line, std::size_t from, std::size_t count) const;
    void addGround(QRgb *line, std::size_t from, std::size_t count) const;
};
