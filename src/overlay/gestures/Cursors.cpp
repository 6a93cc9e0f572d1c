#include "overlay/gestures/Cursors.h"

#include "base/Rect.h"
#include "marks/Kinds.h"
#include "marks/SelectionGeometry.h"

#include <algorithm>

namespace {

constexpr double handleMargin = 4; // points; a little less than where a press grabs

Qt::CursorShape insideCursor(const EditorState &state)
{
    return state.tool ? kindOf(*state.tool).cursor : Qt::OpenHandCursor;
}

} // namespace

namespace Cursors {

Qt::CursorShape cursorAt(const EditorState &state, QPointF point)
{
    if (!state.selection)
        return Qt::CrossCursor;
    if (state.grip)
        return state.grip->held ? Qt::ClosedHandCursor : Qt::OpenHandCursor;
    const auto handles = SelectionGeometry::handleRects(*state.selection);
    if (std::ranges::any_of(handles, [&](const QRectF &h) { return grown(h, handleMargin).contains(point); }))
        return Qt::CrossCursor;
    return state.selection->contains(point) ? insideCursor(state) : Qt::CrossCursor;
}

} // namespace Cursors
