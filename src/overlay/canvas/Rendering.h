#pragma once

#include "base/ScreenShot.h"
#include "marks/EditorState.h"

#include <optional>

class MarksLayer;

// Renders the picture that leaves the program: the frozen screen inside the
// selection with the marks on it, in the screen's own pixels, never resampled.
namespace Rendering {

// Returns whether a selection of that size can be copied: no side is below one point.
[[nodiscard]] bool canBeRendered(const QRectF &selection);

// Returns the picture, with the marks as the screen shows them. It is opaque, and
// its device pixel ratio is the screen's scale. Absent without a selection, or when
// it cannot be rendered.
[[nodiscard]] std::optional<QImage> renderSelection(const EditorState &state, const ScreenShot &shot,
                                                    MarksLayer &marks);

} // namespace Rendering
