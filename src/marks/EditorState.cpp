#include "marks/EditorState.h"

#include <algorithm>
#include <utility>

std::vector<AnnotationPtr> EditorState::drawOrder() const
{
    auto order = annotations;
    std::stable_partition(order.begin(), order.end(),
                          [](const AnnotationPtr &mark) { return mark->tool == Tool::pixelate; });
    return order;
}

void EditorState::moveSelectionTo(const QRectF &target)
{
    const QPointF offset = target.topLeft() - selection->topLeft();
    for (AnnotationPtr &mark : annotations)
        mark = std::make_shared<Annotation>(mark->movedBy(offset));
    selection = target;
}

bool EditorState::undoLast()
{
    if (annotations.empty())
        return false;
    Annotation last = *annotations.back();
    annotations.pop_back();
    if (auto stroke = std::exchange(last.original, std::nullopt)) {
        last.points = *std::move(stroke);
        annotations.push_back(std::make_shared<Annotation>(last));
    }
    return true;
}
