#include "halo/HaloTile.h"

#include "base/PixelRows.h"
#include "base/Prefetch.h"
#include "base/Raster.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <array>

namespace {

// A few rows at a time, so that they are still in the processor's cache when
// they are blended.
constexpr int pixelsAtOnce = 16 * 1024;

// All rows at once.
void prefetch(const QPainter &painter, const QRect &pixels)
{
    const QPaintDevice *device = painter.paintEngine()->paintDevice();
    if (device->devType() != QInternal::Image)
        return;
    const auto *image = static_cast<const QImage *>(device);
    const QRect rect = painter.deviceTransform().mapRect(pixels) & image->rect();
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        Prefetch::toWrite(reinterpret_cast<const QRgb *>(image->constScanLine(y)) + rect.left(),
                          rect.width());
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
    ground.clear();
}

void HaloTile::setGround(const QImage &picture)
{
    ground.resize(coverage.size());
    for (int y = 0; y < pixels.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        const std::size_t from = indexOf(pixels.left(), pixels.top() + y);
        for (std::size_t x = 0; x < static_cast<std::size_t>(pixels.width()); ++x)
            ground[from + x] = PixelRows::times(line[x] | PixelRows::opaque, 255U - coverage[from + x]);
    }
}

std::size_t HaloTile::indexOf(int x, int y) const
{
    return static_cast<std::size_t>(y - pixels.top()) * static_cast<std::size_t>(pixels.width())
           + static_cast<std::size_t>(x - pixels.left());
}

void HaloTile::paint(QPainter &painter, const QRect &part, const HaloColors::Table &colors) const
{
    const QRect shown = part & pixels;
    if (shown.isEmpty())
        return;
    const int rows = std::clamp(pixelsAtOnce / shown.width(), 1, shown.height());
    QImage strip(shown.width(), rows,
                 ground.empty() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    for (int top = shown.top(); top <= shown.bottom(); top += rows) {
        const int count = std::min(rows, shown.bottom() + 1 - top);
        prefetch(painter, QRect(shown.left(), top, shown.width(), count));
        for (int y = 0; y < count; ++y) {
            auto *line = reinterpret_cast<QRgb *>(strip.scanLine(y));
            const auto width = static_cast<std::size_t>(shown.width());
            lookUp(line, indexOf(shown.left(), top + y), width, colors);
            cover(line, indexOf(shown.left(), top + y), width);
            if (!ground.empty())
                addGround(line, indexOf(shown.left(), top + y), width);
        }
        painter.drawImage(QPoint(shown.left(), top), strip, QRect(0, 0, shown.width(), count));
    }
}

void HaloTile::blend(const Raster &raster, const QRect &part, QPoint way,
                     const HaloColors::Table &colors) const
{
    const QRect own = part.translated(-way) & pixels;
    std::array<QRgb, 1024> line;
    for (int y = own.top(); y <= own.bottom(); ++y)
        for (int x = own.left(); x <= own.right(); x += int(line.size())) {
            const int count = std::min(int(line.size()), own.right() + 1 - x);
            const std::size_t from = indexOf(x, y);
            lookUp(line.data(), from, std::size_t(count), colors);
            PixelRows::blendCovering(raster.at(x + way.x(), y + way.y()), line.data(), &coverage[from],
                                     count);
        }
}

// By itself, so that what is done with the colours becomes vector code.
void HaloTile::lookUp(QRgb *line, std::size_t from, std::size_t count, const HaloColors::Table &colors) const
{
    for (std::size_t i = 0; i < count; ++i)
        line[i] = colors[direction[from + i]];
}

void HaloTile::cover(QRgb *line, std::size_t from, std::size_t count) const
{
    for (std::size_t i = 0; i < count; ++i)
        line[i] = PixelRows::times(line[i], coverage[from + i]);
}

void HaloTile::addGround(QRgb *line, std::size_t from, std::size_t count) const
{
    for (std::size_t i = 0; i < count; ++i)
        line[i] += ground[from + i];
}
