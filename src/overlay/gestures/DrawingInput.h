#pragma once

#include "marks/EditorState.h"

#include <functional>
#include <optional>

// Turns a press, a drag and a release into a mark that never leaves the
// selection. All points are view points.
class DrawingInput {
public:
    explicit DrawingInput(EditorState &state) : m_state(state) {}

    // Called with the place where the pointer may come to rest while a freehand
    // stroke is drawn: at the press, and whenever it has strayed from the last such
    // place.
    std::function<void(QPointF)> onRest;

    [[nodiscard]] bool active() const { return m_state.current.has_value(); }

    void begin(QPointF at);
    // Extends the mark to a point. Constrained marks are squares, circles and lines
    // at multiples of 45°.
    void extend(QPointF to, bool constrained);
    // Turns what has been drawn so far into a mark, however little of it shows.
    void commit();
    void discard() { m_state.current.reset(); }

    // Notes that the stroke has become a shape and takes no more points.
    void setSnapped() { m_snapped = true; }
    [[nodiscard]] bool snapped() const { return m_snapped; }

private:
    void extendFreehand(QPointF to);

    EditorState &m_state;
    std::optional<QPointF> m_rest;
    bool m_snapped = false;
};
