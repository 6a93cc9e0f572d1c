#pragma once

#include "marks/Tool.h"
#include "overlay/Command.h"
#include "overlay/gestures/RegionKeys.h"
#include "overlay/gestures/WheelSteps.h"

#include <QKeyCombination>

#include <cstdint>
#include <optional>
#include <variant>

// Works out what a key press means, without doing it.
namespace KeyCommands {

using Meaning = std::variant<Command, Tool, ArrowStep>;

// Returns the meaning of a key; absent when it has none here and belongs to someone
// else. Shortcuts use the Control key or the Super key alike. The letters of the
// tools need a selection, and so does the choice of a corner; the last region comes
// back where there is none.
[[nodiscard]] std::optional<Meaning> meaning(QKeyCombination key, bool hasSelection);

// Returns whether a key that does what Control does is held.
[[nodiscard]] bool isCommand(Qt::KeyboardModifiers held);

// Returns the next line width for one step of the wheel: small steps for thin
// lines, twice as large from 12 points on.
[[nodiscard]] double nextLineWidth(double width, WheelSteps::Step step);

} // namespace KeyCommands
