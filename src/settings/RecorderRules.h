#pragma once

#include <QtCore/qnamespace.h>

#include <cstdint>
#include <optional>

class QKeyEvent;

// Decides what a key press means while a shortcut is being recorded.
namespace RecorderRules {

enum class Verdict { cancel, swallow, accept };

// Returns what to do with a key press. The key is a virtual key code, absent for a
// key that has none; the modifiers are those of Shortcut.
[[nodiscard]] Verdict verdict(std::optional<std::uint32_t> keyCode, std::uint64_t modifiers);

// Returns the virtual key code of the key's position, whatever the key types.
// Absent for a position without a code and for a key that the layout has made a
// modifier. Escape keeps its code wherever the layout has put it.
[[nodiscard]] std::optional<std::uint32_t> keyCodeOf(const QKeyEvent &event);

// Returns the modifiers in the form of Shortcut.
[[nodiscard]] std::uint64_t modifiersOf(Qt::KeyboardModifiers modifiers);

} // namespace RecorderRules
