#pragma once

#include "marks/EditorState.h"

#include <variant>

// The mouse gestures that make, move and resize the selection.
class SelectionDrag {
public:
    explicit SelectionDrag(EditorState &state) : m_state(state) {}

    [[nodiscard]] bool active() const { return !std::holds_alternative<None>(m_drag); }

    void create(QPointF anchor);
    void move(QPointF anchor);
    void resize(int handle);

    void drag(QPointF to);

    void cancel() { m_drag = None{}; }

    // Returns true when a new selection came out of it. One too small to be
    // meant is dropped.
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
