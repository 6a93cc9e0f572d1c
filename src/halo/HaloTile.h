#pragma once

#include "halo/HaloColors.h"

#include <QRect>

#include <cstdint>
#include <vector>

class QPainter;

// The glow over a rectangle of pixels: how much of its colour each takes, and in
// which direction from the middle of the selection it lies. Both stay the same
// while the colours turn, so a frame only looks the colours up.
struct HaloTile {
    // Another rectangle; what was in it is void.
    void setPixels(const QRect &rect);

    // Of row y, which counts downwards as the rectangle does.
    [[nodiscard]] std::size_t indexOf(int x, int y) const;

    // Blends a part of it onto a painter that counts in device pixels.
    void blend(QPainter &painter, const QRect &part, const HaloColors::Table &colors) const;

    QRect pixels;
    std::vector<std::uint8_t> coverage;   // row by row from the top; 255 is all colour
    std::vector<std::uint16_t> direction; // index into the table of colours
};
