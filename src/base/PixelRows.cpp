#include "base/PixelRows.h"

#include "base/Vectorized.h"

#include <QImage>
#include <QRect>

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
