#pragma once

#include "overlay/Annotation.h"

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
    double lineWidth = 3;
    std::vector<AnnotationPtr> annotations = {}; // oldest first

    // Takes the marks along by as much as the selection really moves.
    void moveSelectionTo(const QRectF &target);
};
