#include "overlay/canvas/Backdrop.h"

#include "base/PixelRows.h"
#include "base/Prefetch.h"
#include "base/Raster.h"
#include "toolbar/Theme.h"

namespace {

int shownThrough() { return 255 - Theme::scrim.alpha(); } // the scrim, which is black

} // namespace

const QRgb *Backdrop::at(int x, int y) const
{
    return reinterpret_cast<const QRgb *>(m_shot.image.constScanLine(y)) + x;
}

void Backdrop::forRows(const Raster &raster, const QRect &rect, const auto &write) const
{
    const auto fetch = [&](int y) {
        Prefetch::toWrite(raster.at(rect.left(), y), rect.width());
        Prefetch::toRead(at(rect.left(), y), rect.width());
    };
    Prefetch::forRows(rect.top(), rect.bottom(), fetch,
                      [&](int y) { write(raster.at(rect.left(), y), at(rect.left(), y)); });
}

QImage Backdrop::dimmed(const QRect &pixels) const
{
    if (pixels.isEmpty() || !m_shot.image.rect().contains(pixels))
        return {};
    QImage part(pixels.size(), QImage::Format_RGB32);
    fill(Raster(part, pixels.topLeft()), {}, pixels);
    return part;
}

void Backdrop::fill(const Raster &raster, const QRect &bright, const QRegion &exposed) const
{
    const int through = shownThrough();
    const QRegion shown = exposed & m_shot.image.rect();
    for (const QRect &rect : shown - bright)
        forRows(raster, rect,
                [&](QRgb *to, const QRgb *from) { PixelRows::copyDimmed(to, from, rect.width(), through); });
    for (const QRect &rect : shown &bright)
        forRows(raster, rect, [&](QRgb *to, const QRgb *from) { PixelRows::copy(to, from, rect.width()); });
}
