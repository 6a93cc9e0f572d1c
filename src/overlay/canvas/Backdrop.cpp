#include "overlay/canvas/Backdrop.h"

#include "base/PixelRows.h"
#include "base/Raster.h"
#include "toolbar/Theme.h"

namespace {

int shownThrough() { return 255 - Theme::scrim.alpha(); } // the scrim, which is black

} // namespace

const QRgb *Backdrop::at(int x, int y) const
{
    return reinterpret_cast<const QRgb *>(m_shot.image.constScanLine(y)) + x;
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
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            PixelRows::copyDimmed(raster.at(rect.left(), y), at(rect.left(), y), rect.width(), through);
    for (const QRect &rect : shown &bright)
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            PixelRows::copy(raster.at(rect.left(), y), at(rect.left(), y), rect.width());
}
