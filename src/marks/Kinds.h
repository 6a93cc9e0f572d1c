#pragma once

#include "marks/Look.h"
#include "marks/Tool.h"

#include <QChar>
#include <QPointF>
#include <QString>
#include <QStringView>
#include <Qt>

#include <optional>

// Describes what sets one kind of mark apart from the others. A new kind takes one
// row in the table of Kinds.cpp and one file with its look.
struct Kind {
    Tool tool;
    QStringView text;       // its name, a key of the texts
    char16_t letter;        // the key that chooses it, in upper case
    QStringView symbol;     // on its button
    bool freehand;          // a stroke that follows the hand; the others have two ends or one origin
    Qt::CursorShape cursor; // inside the selection
    // Returns where the second end goes when a regular shape is asked for.
    QPointF (*constrained)(QPointF from, QPointF to);
    const Look &look;
};

[[nodiscard]] const Kind &kindOf(Tool tool);

// Returns the tool's name in the interface language.
[[nodiscard]] QString label(Tool tool);
[[nodiscard]] inline bool isFreehand(Tool tool) { return kindOf(tool).freehand; }
[[nodiscard]] inline char16_t keyLetter(Tool tool) { return kindOf(tool).letter; }
// Returns the tool that the letter, in either case, chooses; absent for any other
// letter.
[[nodiscard]] std::optional<Tool> toolForLetter(QChar letter);
