#pragma once

#include "marks/EditorState.h"

// Decides which cursor the overlay shows.
namespace Cursors {

// Returns the cursor at a view point while nothing but a mark is being dragged.
[[nodiscard]] Qt::CursorShape cursorAt(const EditorState &state, QPointF point);

} // namespace Cursors
