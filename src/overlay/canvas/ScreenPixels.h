#pragma once

#include "base/ScreenShot.h"

#include <QColor>
#include <QRect>

#include <optional>

// The frozen screen's own pixels, found by view points (y upwards).
namespace ScreenPixels {

// The pixel under a point and so many on every side of it, in device pixels;
// may reach beyond the picture.
[[nodiscard]] QRect pixelRect(const ScreenShot &shot, QPointF at, int radius);

// Absent off the screen.
[[nodiscard]] std::optional<QColor> pixelColor(const ScreenShot &shot, QPointF at);

} // namespace ScreenPixels
