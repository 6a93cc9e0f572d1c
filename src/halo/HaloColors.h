#pragma once

#include <QRgb>

#include <array>
#include <cstddef>

// Provides the colours of the glow all the way round the selection.
namespace HaloColors {

struct Color {
    double red, green, blue; // sRGB, 0 to 1
};

// Lists the colours at equal distances round the circle. The last is the first
// again, so that there is no seam.
inline constexpr std::array<Color, 6> colors{{{0.31, 0.49, 1.0},
                                              {0.55, 0.36, 0.96},
                                              {0.91, 0.29, 0.85},
                                              {0.48, 0.40, 1.0},
                                              {0.22, 0.78, 1.0},
                                              {0.31, 0.49, 1.0}}};

// Divides the circle so finely that neighbours differ by less than one shade of
// 255.
inline constexpr std::size_t steps = 4096;
using Table = std::array<QRgb, steps>;

// Fills the table with opaque colours by direction: entry i is for i / steps of a
// circle, counter-clockwise from the right. The first colour points straight up,
// turned on by that part of a circle, which is not negative.
void fill(Table &table, double turn);

} // namespace HaloColors
