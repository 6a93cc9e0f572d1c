#pragma once

#include "capture/ScreenShot.h"
#include "overlay/EditorState.h"

#include <optional>
#include <vector>

class QPainter;

// The picture that leaves the program: the frozen screen inside the selection
// with the marks on it, in the screen's own pixels, never resampled.
namespace Rendering {

// As far as they lie in a part of the selection (view points). The painter counts
// in device pixels of the screen and is left counting in view points. The same
// grid of pixels as on the screen, so that the marks come out alike.
void drawMarks(QPainter &painter, const std::vector<AnnotationPtr> &marks, const QRectF &shown,
               const ScreenShot &shot);

// Opaque, its device pixel ratio the screen's scale. Absent without a
// selection or with one below one point a side.
[[nodiscard]] std::optional<QImage> renderSelection(const EditorState &state, const ScreenShot &shot);

} // namespace Rendering
