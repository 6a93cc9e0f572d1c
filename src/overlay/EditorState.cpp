#include "overlay/EditorState.h"

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
    for (const AnnotationPtr &mark : annotations)
        mark->moveBy(offset);
    selection = target;
}

AnnotationPtr EditorState::undoLast()
{
    if (annotations.empty())
        return nullptr;
    const AnnotationPtr last = annotations.back();
    if (auto stroke = std::exchange(last->original, std::nullopt))
        last->points = *std::move(stroke);
    else
        annotations.pop_back();
    return last;
}
