#include "overlay/gestures/MarkGrab.h"

#include "base/Rect.h"
#include "base/ViewSpace.h"
#include "marks/SelectionGeometry.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double margin = 6; // points from the selection's edge; a mark is taken hold of a little beside it

// Where the hand may carry a mark to, which it has not taken nearer to the edge.
QRectF reach(const QRectF &selection, QPointF anchor)
{
    const QRectF inner = grown(selection, -margin);
    return spanned({std::min(minX(inner), anchor.x()), std::min(minY(inner), anchor.y())},
                   {std::max(maxX(inner), anchor.x()), std::max(maxY(inner), anchor.y())});
}

} // namespace

// Handles come before marks.
std::optional<std::size_t> MarkGrab::reachable() const
{
    if (!m_armed || !m_pointer || !m_state.selection || !m_state.selection->contains(*m_pointer)
        || SelectionGeometry::handleAt(*m_state.selection, *m_pointer))
        return std::nullopt;
    return m_state.markAt(*m_pointer);
}

bool MarkGrab::offer(bool attention)
{
    if (active())
        return false;
    const auto place = attention ? reachable() : std::nullopt;
    const auto before = std::exchange(m_state.grip, std::nullopt);
    if (place)
        m_state.grip = {.place = *place, .held = false, .by = {}};
    return before.has_value() != place.has_value() || (place && before->place != *place);
}

void MarkGrab::take()
{
    m_anchor = m_pointer;
    m_state.grip->held = true;
}

// By whole pixels, so that the mark looks everywhere as it did.
void MarkGrab::carry(QPointF to)
{
    const QPointF way = clamped(to, reach(*m_state.selection, *m_anchor)) - *m_anchor;
    m_state.grip->by = QPointF((way * m_space.scale()).toPoint()) / m_space.scale();
}

// A mark that has not moved leaves nothing to undo.
void MarkGrab::putDown()
{
    m_anchor.reset();
    if (const auto grip = std::exchange(m_state.grip, std::nullopt); grip && !grip->by.isNull())
        m_state.moveMark(grip->place, grip->by);
}

void MarkGrab::putBack()
{
    m_anchor.reset();
    m_state.grip.reset();
}

void MarkGrab::remove()
{
    if (!m_state.grip)
        return;
    const std::size_t place = m_state.grip->place;
    if (active())
        putDown();
    m_state.removeMark(place);
}
