#pragma once

#include "marks/EditorState.h"

#include <QRectF>

class QPainter;

// Draws a sample of what the next mark would look like, beside the pointer, while
// the wheel changes the line's width. All in view points, y upwards.
namespace WidthPreview {

void draw(QPainter &painter, const EditorState &state, QPointF pointer);

// Returns where the panel is, which is all that draw() may touch.
[[nodiscard]] QRectF panel(const EditorState &state, QPointF pointer);

} // namespace WidthPreview
