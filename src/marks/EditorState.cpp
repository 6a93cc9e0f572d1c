#include "marks/EditorState.h"

#include "marks/Kinds.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double grabMargin = 5; // points of slack round a mark

AnnotationPtr moved(const AnnotationPtr &mark, QPointF by)
{
    return std::make_shared<Annotation>(mark->movedBy(by));
}

void takeBack(const Correction &correction, std::vector<AnnotationPtr> &marks)
{
    const auto place = marks.begin() + static_cast<std::ptrdiff_t>(correction.place);
    if (correction.removed)
        marks.insert(place, correction.before);
    else
        *place = correction.before;
}

} // namespace

std::vector<AnnotationPtr> EditorState::drawOrder() const
{
    auto order = annotations;
    std::stable_partition(order.begin(), order.end(),
                          [](const AnnotationPtr &mark) { return mark->tool == Tool::pixelate; });
    return order;
}

std::optional<std::size_t> EditorState::markAt(QPointF point) const
{
    const auto order = drawOrder();
    const auto hit = std::find_if(order.rbegin(), order.rend(), [&](const AnnotationPtr &mark) {
        return kindOf(mark->tool).look.isNear(*mark, point, grabMargin);
    });
    if (hit == order.rend())
        return std::nullopt;
    return static_cast<std::size_t>(std::ranges::find(annotations, *hit) - annotations.begin());
}

std::optional<Annotation> EditorState::gripped() const
{
    return grip ? std::optional(annotations[grip->place]->movedBy(grip->by)) : std::nullopt;
}

void EditorState::moveSelectionTo(const QRectF &target)
{
    const QPointF offset = target.topLeft() - selection->topLeft();
    for (AnnotationPtr &mark : annotations)
        mark = moved(mark, offset);
    for (Correction &correction : corrections)
        correction.before = moved(correction.before, offset);
    selection = target;
}

void EditorState::moveMark(std::size_t place, QPointF by)
{
    grip.reset();
    corrections.push_back({place, annotations[place], false, annotations.size()});
    annotations[place] = moved(annotations[place], by);
}

void EditorState::removeMark(std::size_t place)
{
    grip.reset();
    corrections.push_back({place, annotations[place], true, annotations.size() - 1});
    annotations.erase(annotations.begin() + static_cast<std::ptrdiff_t>(place));
}

void EditorState::discardMarks()
{
    grip.reset();
    annotations.clear();
    corrections.clear();
}

bool EditorState::undoLast()
{
    grip.reset();
    if (!corrections.empty() && corrections.back().marks == annotations.size()) {
        takeBack(corrections.back(), annotations);
        corrections.pop_back();
        return true;
    }
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
