#pragma once

#include <cstdint>
#include <vector>

// Reads the X server's keyboard mapping, afresh on every call.
namespace X11Keyboard {

// Returns the X modifier mask for the modifiers of a shortcut in the saved form.
// For example, command stands for the Super key.
[[nodiscard]] std::uint16_t modifierMask(std::uint64_t shortcutModifiers);

// Returns every state that the lock keys (Caps, Num, Scroll) can be in, none first.
// A shortcut has to work in all of them.
[[nodiscard]] std::vector<std::uint16_t> lockStates();

} // namespace X11Keyboard
