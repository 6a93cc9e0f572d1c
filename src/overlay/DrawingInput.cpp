#include "overlay/DrawingInput.h"

#include "overlay/SelectionGeometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

constexpr double restRadius = 3; // points; a trembling hand is still at rest

QPointF squareCorner(QPointF a, QPointF b)
{
    const double side = std::max(std::abs(b.x() - a.x()), std::abs(b.y() - a.y()));
    return {b.x() < a.x() ? a.x() - side : a.x() + side, b.y() < a.y() ? a.y() - side : a.y() + side};
}

// The end keeps the pointer's distance, not its projection.
QPointF onEighthTurn(QPointF a, QPointF b)
{
    constexpr double step = std::numbers::pi / 4;
    const QPointF v = b - a;
    const double angle = std::round(std::atan2(v.y(), v.x()) / step) * step;
    return a + std::hypot(v.x(), v.y()) * QPointF(std::cos(angle), std::sin(angle));
}

QPointF constrainedEnd(Tool tool, QPointF a, QPointF b)
{
    switch (tool) {
    case Tool::rectangle:
    case Tool::ellipse: return squareCorner(a, b);
    case Tool::line:
    case Tool::arrow: return onEighthTurn(a, b);
    default: return b;
    }
}

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
    const QPointF end = SelectionGeometry::clamped(to, *m_state.selection);
    if (isFreehand(mark.tool))
        extendFreehand(end);
    else
        mark.points[1] = constrained ? constrainedEnd(mark.tool, mark.points.first(), end) : end;
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
