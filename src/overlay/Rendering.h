#pragma once

#include "capture/ScreenShot.h"
#include "overlay/EditorState.h"

#include <optional>

// The picture that leaves the program: the frozen screen inside the selection
// with the marks on it, in the screen's own pixels, never resampled.
namespace Rendering {

// Opaque, its device pixel ratio the screen's scale. Absent without a
// selection or with one below one point a side.
[[nodiscard]] std::optional<QImage> renderSelection(const EditorState &state, const ScreenShot &shot);

} // namespace Rendering
