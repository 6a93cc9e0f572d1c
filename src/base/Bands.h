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

using Paint = std::function<void(QPainter &painter, const QRegion &band)>;
using Fill = std::function<void(const Raster &raster, const QRegion &band)>;

// Calls paint once for each band of the region, in no particular order and with a
// painter in the same space as the one given, or once for all of it where little of it
// is seen or the painter does not count in whole pixels. The region is in device pixels.
// Several threads share a large region, so paint must not change anything. Returns
// when the whole region has been painted.
void draw(QPainter &painter, const QRegion &exposed, const Paint &paint);

// Calls fill in the same way, to write every pixel of the band. The painter must count
// in device pixels. Of its clip only what the window sets counts.
void fill(QPainter &painter, const QRegion &exposed, const Fill &fill);

// A window's memory, which shows what was painted there last.
struct Lasting {
    const void *memory = nullptr; // another one is painted whole at first
    QRegion seen;                 // what the window lets be painted, in device pixels
};
// Returns that; absent where the painter paints elsewhere than in this window, windows are
// cleared before they are painted, or it does not count in whole device pixels.
[[nodiscard]] std::optional<Lasting> lasting(const QPainter &painter, QBackingStore *window);

// Calls fill, perhaps once, to blend over the pixels of the region, premultiplied. The
// painter is as for fill().
void blend(QPainter &painter, const QRegion &exposed, const Fill &fill);

} // namespace Bands
