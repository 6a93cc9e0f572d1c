#pragma once

#include <QRgb>

#include <bit>
#include <cstdint>
#include <span>

class QImage;
class QRect;

// Works on rows of pixels, one plain loop each, which the compiler turns into vector
// code. All results are rounded as Qt rounds when it paints. What is taken from a screen
// becomes opaque, whatever that has where its opacity would be.
namespace PixelRows {

constexpr QRgb opaque = 0xff000000;

// Two channels of a colour at once, and what makes their products round to the nearest.
constexpr std::uint32_t pairs = 0x00ff00ff;
constexpr std::uint32_t halves = 0x00800080;

// All four channels of a colour times a / 255, rounded.
inline QRgb times(QRgb color, std::uint32_t a)
{
    const std::uint32_t even = (color & pairs) * a;
    const std::uint32_t odd = ((color >> 8) & pairs) * a;
    return (((even + ((even >> 8) & pairs) + halves) >> 8) & pairs)
           | ((odd + ((odd >> 8) & pairs) + halves) & ~pairs);
}

// Copies pixels of a screen.
void copy(QRgb *to, const QRgb *from, int count);
// Copies pixels of a screen, every channel times through / 255.
void copyDimmed(QRgb *to, const QRgb *from, int count, int through);
// Blends premultiplied pixels over what is there.
void blend(QRgb *over, const QRgb *from, int count);
// Makes premultiplied pixels fainter: times opacity / 255.
void fade(QRgb *pixels, int count, std::uint32_t opacity);
// Blends premultiplied pixels, made fainter, over what is there.
void blendFaded(QRgb *over, const QRgb *from, int count, std::uint32_t opacity);
// Blends opaque pixels over what is there, each as far as it covers it, of 255.
void blendCovering(QRgb *over, const QRgb *from, const std::uint8_t *coverage, int count);
// Blends one premultiplied colour over what is there.
void blend(QRgb *over, QRgb color, int count);

// Rows that are worked on here and there only: in stretches of eight pixels, a bit each,
// the leftmost lowest.
constexpr int stretch = 8;
using Stretches = std::uint32_t;

// Premultiplied pixels that may be laid over a screen, without those that need not be
// told one by one: memory is what takes long to read.
struct Ink {
    const QRgb *pixels;  // of the stretches that are inked and not plain, one after the other
    Stretches inked = 0; // where there is any
    Stretches plain = 0; // where all eight pixels have the same colour, this one
    QRgb color = 0;

    [[nodiscard]] const QRgb *of(Stretches bit) const
    {
        return pixels + std::popcount(inked & ~plain & (bit - 1)) * stretch;
    }
};

// Of the pixels from one up to another, the stretches that they fill and those that they cut.
struct Parts {
    Stretches whole = 0;
    Stretches cut = 0;
};
[[nodiscard]] inline Parts partsOf(int begin, int end)
{
    const auto below = [](int bit) { return (Stretches(1) << bit) - 1; };
    const Stretches touched = below((end + stretch - 1) / stretch) & ~below(begin / stretch);
    const Stretches whole = below(end / stretch) & ~below((begin + stretch - 1) / stretch);
    return {.whole = whole, .cut = touched & ~whole};
}

// Writes what is inked into the row, and nothing else.
void unpack(QRgb *row, const Ink &ink);

// Writes these stretches of a screen's row with the ink over it, and nothing else. The
// screen may be what is written to.
void lay(QRgb *to, const QRgb *screen, const Ink &ink, Stretches where);
// Does so from one pixel of the row up to another.
void lay(QRgb *to, const QRgb *screen, const Ink &ink, Stretches where, int begin, int end);

// A piece of a row that begins at that pixel.
struct Piece {
    int at;
    Stretches where;
    Ink ink;
};
// Lays all pieces of a row.
void lay(QRgb *to, const QRgb *screen, std::span<const Piece> pieces);

// Returns a copy of that part of a screen's picture, which must have 32 bits a pixel;
// null when the picture does not cover the part.
[[nodiscard]] QImage part(const QImage &screen, const QRect &pixels);

} // namespace PixelRows
