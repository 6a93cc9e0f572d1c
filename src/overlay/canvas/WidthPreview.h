#pragma once

#include "marks/EditorState.h"

#include <QRectF>

class QPainter;

// A sample of what the next mark would look like, beside the pointer, while the
// wheel changes the line's width. View points, y upwards.
namespace WidthPreview {

void draw(QPainter &painter, const EditorState &state, QPointF pointer);

// The panel's place; all that draw() may touch.
[[nodiscard]] QRectF panel(const EditorState &state, QPointF pointer);

} // namespace WidthPreview
