#pragma once

#include "base/ScreenShot.h"

#include <vector>

// The crossing between a screen's pixels and its points on Wayland, where Qt does not
// know the true scale: its own is a whole number, and on some desktops a screen's
// geometry is given in pixels.
namespace ScreenScale {

// Returns pixels per point. The points are those of QScreen::geometry, the ratio is
// QScreen::devicePixelRatio.
[[nodiscard]] double of(QSize pixels, QSize points, double ratio);

// Returns the picture of a screen with its scale. The image is in device pixels, as
// the user sees it.
[[nodiscard]] ScreenShot shot(QScreen &screen, const QImage &image);

// Returns the device pixels of the picture that rectangles in points of its screen cover,
// both y downwards from the top left corner; each edge is moved to the nearest pixel
// border. What lies beyond the picture is cut off, or left out.
[[nodiscard]] std::vector<QRect> pixelsOn(const ScreenShot &shot, const std::vector<QRectF> &rects);

// Puts the shots into the order of the system's list of screens.
void sort(std::vector<ScreenShot> &shots);

} // namespace ScreenScale
