#pragma once

#include "base/ScreenShot.h"
#include "marks/EditorState.h"

#include <optional>

class MarksLayer;

// The picture that leaves the program: the frozen screen inside the selection
// with the marks on it, in the screen's own pixels, never resampled.
namespace Rendering {

// Takes the marks as the screen shows them. The result is opaque, its device pixel
// ratio the screen's scale; absent without a selection or with one below one
// point a side.
[[nodiscard]] std::optional<QImage> renderSelection(const EditorState &state, const ScreenShot &shot,
                                                    MarksLayer &marks);

} // namespace Rendering
