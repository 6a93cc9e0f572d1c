#include "overlay/gestures/RegionKeys.h"

#include "base/Rect.h"
#include "marks/SelectionGeometry.h"

#include <algorithm>

namespace {

constexpr double startingSide = 20; // points
constexpr double smallestSide = 1;
constexpr int farSteps = 10;
constexpr int handles = 8;
constexpr int toNextCorner = -2; // handles are numbered counter-clockwise

std::optional<ArrowStep> direction(Qt::Key key)
{
    switch (key) {
    case Qt::Key_Left: return ArrowStep{-1, 0};
    case Qt::Key_Right: return ArrowStep{1, 0};
    case Qt::Key_Up: return ArrowStep{0, 1};
    case Qt::Key_Down: return ArrowStep{0, -1};
    default: return std::nullopt;
    }
}

} // namespace

std::optional<ArrowStep> RegionKeys::step(QKeyCombination key)
{
    auto step = direction(key.key());
    if (!step)
        return std::nullopt;
    const Qt::KeyboardModifiers held = key.keyboardModifiers();
    step->fine = (held & (Qt::ControlModifier | Qt::MetaModifier)) != Qt::NoModifier;
    step->far = held.testFlag(Qt::ShiftModifier);
    step->ofCorner = held.testFlag(Qt::AltModifier);
    return step;
}

QRectF RegionKeys::start(QPointF at) const
{
    const QRectF wanted{at - QPointF{0, startingSide}, QSizeF{startingSide, startingSide}};
    return SelectionGeometry::moved(wanted, {0, 0}, m_state.bounds);
}

void RegionKeys::follow(const ArrowStep &step)
{
    const double length = (step.far ? farSteps : 1) / (step.fine ? m_scale : 1);
    const QPointF by = QPointF(step.x, step.y) * length;
    if (step.ofCorner)
        moveCorner(by);
    else
        m_state.moveSelectionTo(SelectionGeometry::moved(*m_state.selection, by, m_state.bounds));
}

// It stops short of the opposite corner instead of passing it: whoever holds a key
// down does not mean to turn the selection over.
void RegionKeys::moveCorner(QPointF by)
{
    const QRectF old = *m_state.selection;
    const auto points = SelectionGeometry::handlePoints(old);
    const QPointF corner = points.at(static_cast<size_t>(m_corner));
    const QPointF opposite = points.at(static_cast<size_t>((m_corner + handles / 2) % handles));
    const auto beside = [](bool high, double wanted, double from, double other) {
        return high ? std::max(wanted, std::min(other + smallestSide, from))
                    : std::min(wanted, std::max(other - smallestSide, from));
    };
    const bool right = m_corner == 2 || m_corner == 4;
    const bool upper = m_corner == 4 || m_corner == 6;
    const QPointF to = clamped(corner + by, m_state.bounds);
    m_state.selection = SelectionGeometry::resized(
        old, m_corner,
        {beside(right, to.x(), corner.x(), opposite.x()), beside(upper, to.y(), corner.y(), opposite.y())});
}

void RegionKeys::nextCorner() { m_corner = (m_corner + toNextCorner + handles) % handles; }
