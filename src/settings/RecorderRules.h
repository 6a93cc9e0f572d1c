#pragma once

#include <QtCore/qnamespace.h>

#include <cstdint>
#include <optional>

class QKeyEvent;

// What a key press means while a shortcut is being recorded.
namespace RecorderRules {

enum class Verdict { cancel, swallow, accept };

// The key is a virtual key code, absent for a key that has none; the modifiers
// are those of Shortcut.
[[nodiscard]] Verdict verdict(std::optional<std::uint32_t> keyCode, std::uint64_t modifiers);

// The code of the key's position, whatever it types. Absent for a position
// without one, and for a key that the layout has made a modifier.
[[nodiscard]] std::optional<std::uint32_t> keyCodeOf(const QKeyEvent &event);

// The modifiers as those of Shortcut.
[[nodiscard]] std::uint64_t modifiersOf(Qt::KeyboardModifiers modifiers);

} // namespace RecorderRules
