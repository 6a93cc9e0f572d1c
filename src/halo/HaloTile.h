#pragma once

#include "halo/HaloColors.h"

#include <QRect>
#include <QRgb>

#include <cstdint>
#include <vector>

class QImage;
class QPainter;

// The glow over a rectangle of pixels: how much of its colour each takes, and in
// which direction from the middle of the selection it lies. Both stay the same
// while the colours turn, so a frame only looks the colours up. With the ground
// it does not even read the screen, whose rows are far apart in memory.
struct HaloTile {
    // Changes the rectangle; what was in the tile is void.
    void setPixels(const QRect &rect);

    // Takes along what shows through the glow, out of a picture in whose pixels
    // the rectangle counts and which covers all of it.
    void setGround(const QImage &picture);

    // Returns where a pixel is in the vectors; y counts downwards as the
    // rectangle does.
    [[nodiscard]] std::size_t indexOf(int x, int y) const;

    // Paints a part of it with a painter that counts in device pixels: upon what
    // is there already, or in its place where there is a ground.
    void paint(QPainter &painter, const QRect &part, const HaloColors::Table &colors) const;

    QRect pixels;
    std::vector<std::uint8_t> coverage;   // row by row from the top; 255 is all colour
    std::vector<std::uint16_t> direction; // index into the table of colours
    std::vector<QRgb> ground;             // as much of it as shows through; perhaps empty

private:
    void lookUp(QRgb *line, std::size_t from, std::size_t count, const HaloColors::Table &colors) const;
};
