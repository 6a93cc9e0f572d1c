#include "overlay/gestures/DrawingInput.h"

#include "base/Rect.h"
#include "marks/Kinds.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double restRadius = 3; // points; a trembling hand is still at rest

} // namespace

void DrawingInput::begin(QPointF at)
{
    m_state.current.emplace(*m_state.tool, m_state.color, m_state.lineWidth, QList{at, at});
    m_snapped = false;
    m_rest.reset();
    if (!isFreehand(*m_state.tool))
        return;
    m_rest = at;
    if (onRest)
        onRest(at);
}

void DrawingInput::extend(QPointF to, bool constrained)
{
    Annotation &mark = *m_state.current;
    const QPointF end = clamped(to, *m_state.selection);
    if (isFreehand(mark.tool))
        extendFreehand(end);
    else
        mark.points[1] = constrained ? kindOf(mark.tool).constrained(mark.points.first(), end) : end;
}

void DrawingInput::extendFreehand(QPointF to)
{
    if (m_snapped)
        return;
    m_state.current->points.append(to);
    if (!m_rest || std::hypot(to.x() - m_rest->x(), to.y() - m_rest->y()) <= restRadius)
        return;
    m_rest = to;
    if (onRest)
        onRest(to);
}

void DrawingInput::commit()
{
    m_state.annotations.push_back(std::make_shared<Annotation>(*std::move(m_state.current)));
    m_state.current.reset();
    m_snapped = false;
}
