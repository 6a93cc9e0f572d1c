#include "overlay/gestures/HoldToSnap.h"
#include "marks/Kinds.h"

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto holdDelay = 550ms;

ShapeRecognizer::Points toPoints(const QList<QPointF> &stroke)
{
    ShapeRecognizer::Points points;
    for (const QPointF at : stroke)
        points.push_back({at.x(), at.y()});
    return points;
}

} // namespace

HoldToSnap::HoldToSnap(EditorState &state) : m_state(state)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(holdDelay);
    m_timer.callOnTimeout([this] { held(); });
}

void HoldToSnap::armHold() { m_timer.start(); }

void HoldToSnap::held()
{
    if (!m_state.current || !isFreehand(m_state.current->tool))
        return;
    const auto shape = ShapeRecognizer::recognize(toPoints(m_state.current->points), true);
    if (!shape)
        return onMissed();
    snap(*m_state.current, *shape);
    onSnapped(*shape);
}

void HoldToSnap::snap(Annotation &stroke, const ShapeRecognizer::Result &shape)
{
    QList<QPointF> outline;
    for (const auto &[x, y] : shape.points)
        outline.append({x, y});
    stroke.original = std::exchange(stroke.points, outline);
}
