#pragma once

#include "marks/Annotation.h"

#include <QColor>
#include <QRectF>

#include <optional>
#include <vector>

// What the user has made on one screen so far, in view points. It knows no
// widget and no painter; the collaborators of the overlay read and change it.
struct EditorState {
    QRectF bounds; // the whole screen
    std::optional<QRectF> selection = std::nullopt;
    std::optional<Tool> tool = std::nullopt; // absent: the selection itself is moved and resized
    QColor color = Qt::red;
    double lineWidth = 3;                             // points
    std::vector<AnnotationPtr> annotations = {};      // oldest first
    std::optional<Annotation> current = std::nullopt; // the mark being drawn; it grows in place

    // Pixelations first, so that they never hide a stroke drawn earlier.
    [[nodiscard]] std::vector<AnnotationPtr> drawOrder() const;

    // Takes the marks along by as much as the selection really moves.
    void moveSelectionTo(const QRectF &target);

    // Gives the last mark its hand-drawn stroke back, or takes the mark away
    // when it has none. Returns false when there is nothing to undo.
    bool undoLast();
};
