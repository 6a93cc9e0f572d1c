#pragma once

#include "marks/EditorState.h"

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

    void cancel() { m_drag = None{}; }

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

    EditorState &m_state;
    std::variant<None, Creating, Moving, Resizing> m_drag;
};
