#pragma once

#include "marks/Annotation.h"

#include <QColor>
#include <QRectF>

#include <optional>
#include <vector>

// Holds what the user has made on one screen so far, in view points. It knows no
// widget and no painter; the collaborators of the overlay read and change it.
struct EditorState {
    QRectF bounds; // the whole screen
    std::optional<QRectF> selection = std::nullopt;
    std::optional<Tool> tool = std::nullopt; // absent: the selection itself is moved and resized
    QColor color = Qt::red;
    double lineWidth = 3;                             // points
    std::vector<AnnotationPtr> annotations = {};      // oldest first
    std::optional<Annotation> current = std::nullopt; // the mark being drawn; it grows in place

    // Returns the marks in the order in which they are drawn: pixelations first, so
    // that they never hide a stroke drawn earlier.
    [[nodiscard]] std::vector<AnnotationPtr> drawOrder() const;

    // Moves the selection to the target and every mark by the same distance.
    void moveSelectionTo(const QRectF &target);

    // Restores the hand-drawn stroke of the last mark, or removes the mark when it
    // has none. Returns false when there is nothing to undo.
    bool undoLast();
};
