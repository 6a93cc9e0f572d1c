#include "halo/HaloTile.h"

#include <QImage>
#include <QPainter>

#include <algorithm>

namespace {

// A few rows at a time, so that they are still in the processor's cache when
// they are blended.
constexpr int pixelsAtOnce = 16 * 1024;

// All four channels of a colour times a / 255, rounded.
QRgb times(QRgb color, std::uint32_t a)
{
    constexpr std::uint32_t pairs = 0x00ff00ff;
    constexpr std::uint32_t halves = 0x00800080;
    const std::uint32_t even = (color & pairs) * a;
    const std::uint32_t odd = ((color >> 8) & pairs) * a;
    return (((even + ((even >> 8) & pairs) + halves) >> 8) & pairs)
           | ((odd + ((odd >> 8) & pairs) + halves) & ~pairs);
}

} // namespace

void HaloTile::setPixels(const QRect &rect)
{
    pixels = rect;
    const std::size_t count
        = rect.isEmpty() ? 0
                         : static_cast<std::size_t>(rect.width()) * static_cast<std::size_t>(rect.height());
    coverage.resize(count);
    direction.resize(count);
}

std::size_t HaloTile::indexOf(int x, int y) const
{
    return static_cast<std::size_t>(y - pixels.top()) * static_cast<std::size_t>(pixels.width())
           + static_cast<std::size_t>(x - pixels.left());
}

void HaloTile::blend(QPainter &painter, const QRect &part, const HaloColors::Table &colors) const
{
    const QRect shown = part & pixels;
    if (shown.isEmpty())
        return;
    const int rows = std::clamp(pixelsAtOnce / shown.width(), 1, shown.height());
    const auto width = static_cast<std::size_t>(shown.width());
    QImage strip(shown.width(), rows, QImage::Format_ARGB32_Premultiplied);
    for (int top = shown.top(); top <= shown.bottom(); top += rows) {
        const int count = std::min(rows, shown.bottom() + 1 - top);
        for (int y = 0; y < count; ++y) {
            auto *line = reinterpret_cast<QRgb *>(strip.scanLine(y));
            const std::size_t from = indexOf(shown.left(), top + y);
            for (std::size_t x = 0; x < width; ++x)
                line[x] = times(colors[direction[from + x]], coverage[from + x]);
        }
        painter.drawImage(QPoint(shown.left(), top), strip, QRect(0, 0, shown.width(), count));
    }
}
