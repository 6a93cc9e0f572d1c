#pragma once

#include "marks/EditorState.h"

#include <QKeyCombination>
#include <compare>
#include <optional>

// One press of an arrow key: with Alt a corner of the selection goes, otherwise the
// selection as a whole.
struct ArrowStep {
    int x; // 1 or -1 to the right or left, as y is upwards or downwards; the other is 0
    int y;
    bool fine = false; // by device pixels instead of points
    bool far = false;  // ten of them at once
    bool ofCorner = false;

    auto operator<=>(const ArrowStep &) const = default;
};

// Makes, moves and resizes the selection by keys alone. Everything is in view points,
// y upwards.
class RegionKeys {
public:
    // Takes the number of device pixels per point. The state must outlive this.
    RegionKeys(EditorState &state, double scale) : m_state(state), m_scale(scale) {}

    // Returns what the key does to the selection, if it is an arrow key.
    [[nodiscard]] static std::optional<ArrowStep> step(QKeyCombination key);

    // Returns a small region to begin with, its upper left corner at the point or as
    // near to it as the screen allows.
    [[nodiscard]] QRectF start(QPointF at) const;
    // Begins with the lower right corner again, for another selection.
    void forgetCorner() { m_corner = firstCorner; }
    // Needs a selection, which stays on the screen and keeps some extent.
    void follow(const ArrowStep &step);
    // Makes the next corner, clockwise, the one that goes; the lower right one is the
    // first.
    void nextCorner();

private:
    void moveCorner(QPointF by);

    EditorState &m_state;
    const double m_scale;
    int m_corner = firstCorner; // as SelectionGeometry numbers the handles

    static constexpr int firstCorner = 2;
};
