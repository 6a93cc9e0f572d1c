#pragma once

#include <QRegion>

#include <functional>

class QPainter;

// Cuts large repaints into bands: one still lies in the processor's cache when it
// is painted upon a second time, and several are painted at once.
namespace Bands {

using Paint = std::function<void(QPainter &painter, const QRegion &band)>;

// Calls paint for each band of the region, in no order, with a painter in the
// same space as the one given, which counts in device pixels. Whatever is large is
// painted by several threads, so paint must not change anything. Returns when all
// of it has been painted.
void draw(QPainter &painter, const QRegion &exposed, const Paint &paint);

} // namespace Bands
