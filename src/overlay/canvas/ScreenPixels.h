#pragma once

#include "base/ScreenShot.h"

#include <QColor>
#include <QRect>

#include <optional>

// Finds the frozen screen's pixels by view points, y upwards.
namespace ScreenPixels {

// Returns the square of device pixels round the pixel under a point, with so many
// pixels on every side of it. The square may reach beyond the picture.
[[nodiscard]] QRect pixelRect(const ScreenShot &shot, QPointF at, int radius);

// Returns the colour under a point; absent off the screen.
[[nodiscard]] std::optional<QColor> pixelColor(const ScreenShot &shot, QPointF at);

} // namespace ScreenPixels
