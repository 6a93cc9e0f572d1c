#pragma once

#include "marks/EditorState.h"
#include "shapes/ShapeRecognizer.h"

#include <QTimer>

#include <functional>

// Waits for the pointer to come to rest while a freehand stroke is drawn, and then
// replaces the stroke by the shape it was meant to be.
class HoldToSnap {
public:
    explicit HoldToSnap(EditorState &state);

    // Called when the stroke being drawn has become a shape.
    std::function<void(const ShapeRecognizer::Result &)> onSnapped;
    // Called when no shape was found; another attempt needs another rest.
    std::function<void()> onMissed;

    // Starts waiting, because the pointer is at a place where it may rest.
    void armHold();
    void cancel() { m_timer.stop(); }

private:
    void held();
    static void snap(Annotation &stroke, const ShapeRecognizer::Result &shape);

    EditorState &m_state;
    QTimer m_timer;
};
