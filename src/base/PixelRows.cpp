#include "base/PixelRows.h"

#include "base/Vectorized.h"

#include <QImage>
#include <QRect>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>

namespace {

// The loop over eight pixels that compilers unroll instead of making it vector code.
using Eight = std::uint32_t __attribute__((vector_size(sizeof(QRgb) * PixelRows::stretch)));
using Halves = std::uint16_t __attribute__((vector_size(sizeof(Eight))));
using Pairs = std::uint64_t __attribute__((vector_size(sizeof(Eight))));

// Always part of its caller, and so compiled for the same processor, like what follows. All
// four channels times factor / 255, rounded.
__attribute__((always_inline)) inline void multiply(Eight &pixels, const Eight &factor)
{
    using PixelRows::halves;
    using PixelRows::pairs;
    const auto both = Halves(factor | factor << 16);
    const auto even = Eight(Halves(pixels & pairs) * both);
    const auto odd = Eight(Halves(pixels >> 8 & pairs) * both);
    pixels = ((even + (even >> 8 & pairs) + halves) >> 8 & pairs)
             | ((odd + (odd >> 8 & pairs) + halves) & ~pairs);
}

__attribute__((always_inline)) inline void blendOver(Eight &below, Eight &above)
{
    multiply(below, 255U - (above >> 24));
    above += below;
}

// Eight bytes, each as a word. Compilers take them one by one when they are asked to convert.
__attribute__((always_inline)) inline void widen(Eight &words, const std::uint8_t *bytes)
{
    if constexpr (std::endian::native == std::endian::little) {
        std::uint64_t all;
        std::memcpy(&all, bytes, sizeof all);
        const Pairs two = (Pairs{} + all) >> Pairs{0, 16, 32, 48};
        words = Eight((two & 0xff) | (two & 0xff00) << 24);
    } else {
        for (int i = 0; i < PixelRows::stretch; ++i)
            words[i] = bytes[i];
    }
}

void unpackStretch(QRgb *to, const PixelRows::Ink &ink, PixelRows::Stretches bit)
{
    if ((ink.plain & bit) != 0)
        std::fill_n(to, PixelRows::stretch, ink.color);
    else
        std::copy_n(ink.of(bit), PixelRows::stretch, to);
}

// A loop for each kind, because guessing the next one's kind would fail again and again. Takes
// a copy of the ink: that of the caller would be read again after every write.
__attribute__((always_inline)) inline void layPiece(QRgb *to, const QRgb *screen, const PixelRows::Ink ink,
                                                    PixelRows::Stretches where)
{
    using PixelRows::opaque;
    using PixelRows::stretch;
    using PixelRows::Stretches;
    const bool covers = qAlpha(ink.color) == 255;
    const Eight color = Eight{} + ink.color;
    const Stretches filled = covers ? where & ink.plain : 0;
    for (Stretches left = filled; left != 0; left &= left - 1)
        std::memcpy(to + std::countr_zero(left) * stretch, &color, sizeof color);
    for (Stretches left = where & ~ink.inked; left != 0; left &= left - 1) {
        const auto at = std::countr_zero(left) * stretch;
        Eight pixels;
        std::memcpy(&pixels, screen + at, sizeof pixels);
        pixels |= opaque;
        std::memcpy(to + at, &pixels, sizeof pixels);
    }
    for (Stretches left = where & ink.plain & ~filled; left != 0; left &= left - 1) {
        const auto at = std::countr_zero(left) * stretch;
        Eight below;
        std::memcpy(&below, screen + at, sizeof below);
        below |= opaque;
        Eight above = color;
        blendOver(below, above);
        std::memcpy(to + at, &above, sizeof above);
    }
    for (Stretches left = where & ink.inked & ~ink.plain; left != 0; left &= left - 1) {
        const auto at = std::countr_zero(left) * stretch;
        Eight below;
        Eight above;
        std::memcpy(&below, screen + at, sizeof below);
        std::memcpy(&above, ink.of(left & -left), sizeof above);
        below |= opaque;
        blendOver(below, above);
        std::memcpy(to + at, &above, sizeof above);
    }
}

// Lays a part of a stretch.
void layWithin(QRgb *to, const QRgb *screen, const PixelRows::Ink &ink, PixelRows::Stretches where, int begin,
               int end)
{
    const PixelRows::Stretches bit = PixelRows::Stretches(1) << begin / PixelRows::stretch;
    if (begin >= end || (where & bit) == 0)
        return;
    PixelRows::copy(to + begin, screen + begin, end - begin);
    if ((ink.inked & bit) == 0)
        return;
    std::array<QRgb, PixelRows::stretch> above;
    unpackStretch(above.data(), ink, bit);
    PixelRows::blend(to + begin, above.data() + begin % PixelRows::stretch, end - begin);
}

} // namespace

namespace PixelRows {

VELLUMORA_VECTORIZED void copy(QRgb *to, const QRgb *from, int count)
{
    for (int i = 0; i < count; ++i)
        to[i] = from[i] | opaque;
}

VELLUMORA_VECTORIZED void copyDimmed(QRgb *to, const QRgb *from, int count, int through)
{
    const auto factor = static_cast<std::uint16_t>(through);
    const auto *bright = reinterpret_cast<const uchar *>(from);
    auto *dim = reinterpret_cast<uchar *>(to);
    for (int i = 0; i < count * int(sizeof(QRgb)); ++i) {
        const auto product = static_cast<std::uint16_t>(bright[i] * factor);
        dim[i] = static_cast<uchar>(static_cast<std::uint16_t>(product + (product >> 8) + 128) >> 8);
    }
    for (int i = 0; i < count; ++i)
        to[i] |= opaque;
}

VELLUMORA_VECTORIZED void blend(QRgb *over, const QRgb *from, int count)
{
    for (int i = 0; i < count; ++i)
        over[i] = from[i] + times(over[i], 255U - (from[i] >> 24));
}

VELLUMORA_VECTORIZED void blend(QRgb *over, QRgb color, int count)
{
    const std::uint32_t through = 255U - std::uint32_t(qAlpha(color));
    for (int i = 0; i < count; ++i)
        over[i] = color + times(over[i], through);
}

VELLUMORA_VECTORIZED void fade(QRgb *pixels, int count, std::uint32_t opacity)
{
    for (int i = 0; i < count; ++i)
        pixels[i] = times(pixels[i], opacity);
}

VELLUMORA_VECTORIZED void blendFaded(QRgb *over, const QRgb *from, int count, std::uint32_t opacity)
{
    for (int i = 0; i < count; ++i) {
        const QRgb faded = times(from[i], opacity);
        over[i] = faded + times(over[i], 255U - (faded >> 24));
    }
}

// Eight pixels at a time, because compilers multiply whole words for the rest.
VELLUMORA_VECTORIZED void blendCovering(QRgb *over, const QRgb *from, const std::uint8_t *coverage, int count)
{
    int i = 0;
    for (; i + stretch <= count; i += stretch) {
        Eight below;
        Eight above;
        std::memcpy(&below, over + i, sizeof below);
        std::memcpy(&above, from + i, sizeof above);
        Eight covered;
        widen(covered, coverage + i);
        multiply(above, covered);
        blendOver(below, above);
        std::memcpy(over + i, &above, sizeof above);
    }
    for (; i < count; ++i) {
        const QRgb above = times(from[i], coverage[i]);
        over[i] = above + times(over[i], 255U - (above >> 24));
    }
}

void unpack(QRgb *row, const Ink &ink)
{
    for (Stretches left = ink.inked; left != 0; left &= left - 1)
        unpackStretch(row + std::countr_zero(left) * stretch, ink, left & -left);
}

void lay(QRgb *to, const QRgb *screen, const Ink &ink, Stretches where)
{
    const Piece whole{.at = 0, .where = where, .ink = ink};
    lay(to, screen, {&whole, 1});
}

VELLUMORA_VECTORIZED void lay(QRgb *to, const QRgb *screen, std::span<const Piece> pieces)
{
    for (const Piece &piece : pieces)
        layPiece(to + piece.at, screen + piece.at, piece.ink, piece.where);
}

void lay(QRgb *to, const QRgb *screen, const Ink &ink, Stretches where, int begin, int end)
{
    const auto [whole, cut] = partsOf(begin, end);
    if ((where & cut) != 0) {
        const int firstBorder = std::min((begin + stretch - 1) / stretch * stretch, end);
        layWithin(to, screen, ink, where, begin, firstBorder);
        layWithin(to, screen, ink, where, std::max(end / stretch * stretch, firstBorder), end);
    }
    if ((where & whole) != 0)
        lay(to, screen, ink, where & whole);
}

QImage part(const QImage &screen, const QRect &pixels)
{
    if (!screen.rect().contains(pixels) || pixels.isEmpty())
        return {};
    QImage copied(pixels.size(), QImage::Format_RGB32);
    for (int y = 0; y < pixels.height(); ++y)
        copy(reinterpret_cast<QRgb *>(copied.scanLine(y)),
             reinterpret_cast<const QRgb *>(screen.constScanLine(pixels.top() + y)) + pixels.left(),
             pixels.width());
    return copied;
}

} // namespace PixelRows
