#pragma once

#include "marks/Tool.h"
#include "overlay/Command.h"
#include "overlay/gestures/WheelSteps.h"

#include <QKeyCombination>

#include <cstdint>
#include <optional>
#include <variant>

// What a key press means, worked out without doing it.
namespace KeyCommands {

using Meaning = std::variant<Command, Tool>;

// Absent when the key means nothing here and belongs to someone else. Command
// is the Control key or the Super key, whichever the hand finds. The letters of
// the tools need a selection.
[[nodiscard]] std::optional<Meaning> meaning(QKeyCombination key, bool hasSelection);

// One step of the wheel: fine for thin lines, double from 12 points on.
[[nodiscard]] double nextLineWidth(double width, WheelSteps::Step step);

} // namespace KeyCommands
