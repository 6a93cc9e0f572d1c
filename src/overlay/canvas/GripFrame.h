#pragma once

#include <QRect>
#include <QRegion>

class QPainter;
class ViewSpace;
struct EditorState;

// Frames the mark that the pointer can take hold of, or has in its hand.
class GripFrame {
public:
    // Takes the space, which must outlive this object.
    explicit GripFrame(const ViewSpace &space) : m_space(space) {}

    // Follows the grip of the state. Returns what has to be painted for it, in widget
    // points.
    [[nodiscard]] QRegion follow(const EditorState &state);
    // Draws the frame in view points, y upwards.
    void draw(QPainter &painter) const;

private:
    [[nodiscard]] QRect frameOf(const EditorState &state) const;
    [[nodiscard]] QRegion line() const;

    const ViewSpace &m_space;
    QRect m_frame; // widget points, the line inside its edges; empty when there is none
};
