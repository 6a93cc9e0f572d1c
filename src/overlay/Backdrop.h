#pragma once

#include "capture/ScreenShot.h"

#include <QRegion>

#include <optional>

class QPainter;

// The frozen screen under everything, dimmed outside the selection.
namespace Backdrop {

// Paints only the exposed part (widget points, y downwards) and never
// resamples: one pixel of the picture is one pixel of the screen.
void draw(QPainter &painter, const ScreenShot &shot, const std::optional<QRectF> &selection,
          const QRegion &exposed);

} // namespace Backdrop
