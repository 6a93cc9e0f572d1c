#pragma once

#include "base/ScreenShot.h"

#include <QRectF>

class QPainter;

// Draws the magnifying glass of the eyedropper and the colour that it reads.
// Everything is in view points, y upwards.
namespace Loupe {

inline constexpr int cells = 11;   // pixels per side, the picked one in the middle
inline constexpr double zoom = 12; // points per pixel

void draw(QPainter &painter, const ScreenShot &shot, QPointF at);

// Returns the area that draw() may touch.
[[nodiscard]] QRectF area(QPointF at);

// Returns the place of the readout, below the glass or above it if the screen ends
// there.
[[nodiscard]] QRectF badge(QPointF at, QSizeF text);

} // namespace Loupe
