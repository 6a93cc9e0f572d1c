#pragma once

#include "base/ScreenShot.h"
#include "marks/EditorState.h"

#include <optional>

class MarksLayer;

// Renders the picture that leaves the program: the frozen screen inside the
// selection with the marks on it, in the screen's own pixels, never resampled.
namespace Rendering {

// Returns the picture, with the marks as the screen shows them. It is opaque, and
// its device pixel ratio is the screen's scale. Absent without a selection, or when
// a side of the selection is below one point.
[[nodiscard]] std::optional<QImage> renderSelection(const EditorState &state, const ScreenShot &shot,
                                                    MarksLayer &marks);

} // namespace Rendering
