#pragma once

#include "marks/Annotation.h"

#include <QColor>
#include <QPointF>
#include <QRectF>

#include <cstddef>
#include <optional>
#include <vector>

// Names the finished mark that the pointer can take hold of, or has in its hand.
struct Grip {
    std::size_t place; // among the marks
    bool held;         // in the hand, and above all others
    QPointF by;        // how far it has been carried so far, points
};

// Remembers a finished mark as it was before it was moved or removed.
struct Correction {
    std::size_t place; // among the marks
    AnnotationPtr before;
    bool removed;
    std::size_t marks; // how many there were right after it
};

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
    std::optional<Grip> grip = std::nullopt;
    std::vector<Correction> corrections = {}; // oldest first

    // Returns the marks in the order in which they are drawn: pixelations first, so
    // that they never hide a stroke drawn earlier.
    [[nodiscard]] std::vector<AnnotationPtr> drawOrder() const;

    // Returns the place of the uppermost mark at a point, with some slack; absent
    // where none is.
    [[nodiscard]] std::optional<std::size_t> markAt(QPointF point) const;
    // Returns the mark in the grip, where it is now; absent without a grip.
    [[nodiscard]] std::optional<Annotation> gripped() const;

    // Moves the selection to the target and every mark by the same distance.
    void moveSelectionTo(const QRectF &target);

    // Move or remove the mark at that place, as a step that can be undone.
    void moveMark(std::size_t place, QPointF by);
    void removeMark(std::size_t place);
    // Forgets all marks and what could be undone.
    void discardMarks();

    // Takes back the last correction if no mark is younger. Otherwise restores the
    // hand-drawn stroke of the last mark, or removes the mark when it has none.
    // Returns false when there is nothing to undo.
    bool undoLast();
};
