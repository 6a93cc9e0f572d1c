#pragma once

#include "marks/EditorState.h"

// Which pointer the overlay shows.
namespace Cursors {

// While nothing is being dragged, at a view point.
[[nodiscard]] Qt::CursorShape cursorAt(const EditorState &state, QPointF point);

} // namespace Cursors
