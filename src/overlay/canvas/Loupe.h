#pragma once

#include "base/ScreenShot.h"

#include <QRectF>

class QPainter;

// The magnifying glass of the eyedropper and the colour that it reads. View
// points, y upwards.
namespace Loupe {

inline constexpr int cells = 11;   // pixels a side, the picked one in the middle
inline constexpr double zoom = 12; // points a pixel

void draw(QPainter &painter, const ScreenShot &shot, QPointF at);

// All that draw() may touch.
[[nodiscard]] QRectF area(QPointF at);

// The readout, below the glass or above it where the screen ends.
[[nodiscard]] QRectF badge(QPointF at, QSizeF text);

} // namespace Loupe
