#pragma once

#include <QRegion>

#include <functional>
#include <optional>

class QBackingStore;
class QPainter;
class Raster;

// Cuts large repaints into bands: a band is still in the processor's cache when it
// is painted over a second time, and several bands can be painted at once.
namespace Bands {

using Fill = std::function<void(const Raster &raster, const QRegion &band)>;

// Calls fill once for each band of the region, in no particular order, to write every
// pixel of it. The region is in device pixels, and the painter must count in them. Of its
// clip only what the window sets counts. Several threads share a large region, so fill
// must not change anything else. Returns when all has been written.
void fill(QPainter &painter, const QRegion &exposed, const Fill &fill);

// A window's memory, which shows what was painted there last.
struct Lasting {
    const void *memory = nullptr; // another one is painted whole at first
    QRegion seen;                 // what the window lets be painted, in device pixels
};
// Returns that; absent where the painter paints elsewhere than in this window, windows are
// cleared before they are painted, or it does not count in whole device pixels.
[[nodiscard]] std::optional<Lasting> lasting(const QPainter &painter, QBackingStore *window);

// Calls fill in the same way, to blend over the pixels of the region, premultiplied. Where
// the painter does not count in whole device pixels that is once, so that a rectangle has
// no seams.
void blend(QPainter &painter, const QRegion &exposed, const Fill &fill);

} // namespace Bands
