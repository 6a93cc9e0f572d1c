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

void SelectionDrag::drag(QPointF to)
{
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
    m_drag = None{};
    if (created && tooSmall(*m_state.selection))
        m_state.selection.reset();
    return created && m_state.selection;
}
