#include "overlay/EditorState.h"

void EditorState::moveSelectionTo(const QRectF &target)
{
    const QPointF offset = target.topLeft() - selection->topLeft();
    for (const AnnotationPtr &mark : annotations)
        mark->moveBy(offset);
    selection = target;
}
