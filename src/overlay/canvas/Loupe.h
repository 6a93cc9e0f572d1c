#pragma once

#include "base/ScreenShot.h"

#include <QRectF>

class QPainter;

// Draws the magnifying glass of the eyedropper and the colour that it reads, or the
// one through which an edge is put where it belongs. Everything is in view points, y
// upwards, unless said otherwise.
namespace Loupe {

inline constexpr int cells = 11;   // pixels per side, the picked one in the middle
inline constexpr double zoom = 12; // points per pixel

void draw(QPainter &painter, const ScreenShot &shot, QPointF at);

// Draws the glass with a grid between the pixels and the edges of the selection
// (device pixels, y downwards) among them, without the colour.
void drawEdges(QPainter &painter, const ScreenShot &shot, QPointF at, const QRect &selected);

// Returns the area that either may touch.
[[nodiscard]] QRectF area(QPointF at);

// Returns the place of the readout, below the glass or above it if the screen ends
// there.
[[nodiscard]] QRectF badge(QPointF at, QSizeF text);

} // namespace Loupe
