#pragma once

#include "marks/EditorState.h"

#include <QPointF>

#include <optional>

class ViewSpace;

// Lets the pointer take hold of finished marks while a key is down, carry them about
// and take them away. All points are view points.
class MarkGrab {
public:
    // The state and the space must outlive this object.
    MarkGrab(EditorState &state, const ViewSpace &space) : m_state(state), m_space(space) {}

    // Return whether a mark is in the hand, and whether the key is down.
    [[nodiscard]] bool active() const { return m_anchor.has_value(); }
    [[nodiscard]] bool armed() const { return m_armed; }

    // Note whether the key is down, and where the pointer is; absent while it is over
    // something else.
    void arm(bool armed) { m_armed = armed; }
    void pointerAt(std::optional<QPointF> at) { m_pointer = at; }
    // Offers the mark under the pointer, unless something else has the pointer's
    // attention. Returns whether another mark than before is offered, or none.
    bool offer(bool attention);

    // Takes hold of the offered mark at the pointer.
    void take();
    // Carries it along. What the hand holds of it stays inside the selection, so that
    // no mark is ever lost.
    void carry(QPointF to);
    // Leaves the mark where it is now.
    void putDown();
    // Leaves the mark where it was before.
    void putBack();
    // Removes the offered mark, or the one in the hand.
    void remove();

private:
    [[nodiscard]] std::optional<std::size_t> reachable() const;

    EditorState &m_state;
    const ViewSpace &m_space;
    bool m_armed = false;
    std::optional<QPointF> m_pointer;
    std::optional<QPointF> m_anchor; // where the mark was taken hold of; absent while none is held
};
