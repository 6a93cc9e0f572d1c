#include "overlay/gestures/SelectionDrag.h"

#include "base/Overloaded.h"
#include "base/Rect.h"
#include "marks/SelectionGeometry.h"

using namespace SelectionGeometry;

namespace {

constexpr double smallestSide = 3; // points; anything less was a click

bool tooSmall(const QRectF &r) { return r.width() < smallestSide || r.height() < smallestSide; }

} // namespace

void SelectionDrag::create(QPointF anchor)
{
    m_state.selection = QRectF{anchor, QSizeF{0, 0}};
    m_drag = Creating{anchor};
}

void SelectionDrag::move(QPointF anchor) { m_drag = Moving{anchor, *m_state.selection}; }

void SelectionDrag::resize(int handle) { m_drag = Resizing{handle, *m_state.selection}; }

void SelectionDrag::hold(QPointF at)
{
    if (!m_held)
        m_held = Held{at, *m_state.selection, m_drag};
}

bool SelectionDrag::movesEdge() const
{
    return std::holds_alternative<Creating>(m_drag) || std::holds_alternative<Resizing>(m_drag);
}

// The gesture goes on from where the region is put down.
void SelectionDrag::carry(QPointF to)
{
    const QRectF target = moved(m_held->region, to - m_held->from, m_state.bounds);
    const QPointF by = target.topLeft() - m_held->region.topLeft();
    const Overloaded follow{
        [](None) -> Drag { return None{}; },
        [&](Creating d) -> Drag { return Creating{d.anchor + by}; },
        [](Moving d) -> Drag { return d; },
        [&](Resizing d) -> Drag {
            return Resizing{d.handle, d.start.translated(by)};
        },
    };
    m_drag = std::visit(follow, m_held->drag);
    m_state.moveSelectionTo(target);
}

void SelectionDrag::cancel()
{
    m_drag = None{};
    m_held.reset();
}

void SelectionDrag::drag(QPointF to)
{
    if (m_held)
        return carry(to);
    const Overloaded follow{
        [](None) {},
        [&](Creating d) { m_state.selection = spanned(d.anchor, to); },
        [&](Moving d) { m_state.moveSelectionTo(moved(d.start, to - d.anchor, m_state.bounds)); },
        [&](Resizing d) { m_state.selection = resized(d.start, d.handle, to); },
    };
    std::visit(follow, m_drag);
}

bool SelectionDrag::release()
{
    const bool created = std::holds_alternative<Creating>(m_drag);
    cancel();
    if (created && tooSmall(*m_state.selection))
        m_state.selection.reset();
    return created && m_state.selection;
}
