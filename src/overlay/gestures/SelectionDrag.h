#pragma once

#include "marks/EditorState.h"

#include <optional>
#include <variant>

// Makes, moves and resizes the selection by mouse gestures.
class SelectionDrag {
public:
    explicit SelectionDrag(EditorState &state) : m_state(state) {}

    [[nodiscard]] bool active() const { return !std::holds_alternative<None>(m_drag); }

    void create(QPointF anchor);
    void move(QPointF anchor);
    void resize(int handle);

    void drag(QPointF to);

    // Takes hold of the region that is being made or resized, at the point where the
    // pointer is: it then follows the pointer as a whole until it is let go.
    void hold(QPointF at);
    void letGo() { m_held.reset(); }
    // Whether one of its edges follows the pointer.
    [[nodiscard]] bool movesEdge() const;

    void cancel();

    // Ends the gesture. Returns true when it has made a new selection. A selection
    // that is too small to be meant is dropped.
    bool release();

private:
    struct None {};
    struct Creating {
        QPointF anchor;
    };
    struct Moving {
        QPointF anchor;
        QRectF start;
    };
    struct Resizing {
        int handle;
        QRectF start;
    };

    using Drag = std::variant<None, Creating, Moving, Resizing>;
    struct Held {
        QPointF from;
        QRectF region;
        Drag drag; // as it was
    };

    void carry(QPointF to);

    EditorState &m_state;
    Drag m_drag;
    std::optional<Held> m_held;
};
