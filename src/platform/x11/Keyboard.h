#pragma once

#include <cstdint>
#include <vector>

// The server's keyboard mapping, asked afresh by every call.
namespace X11Keyboard {

// The modifier mask that stands for the modifiers of a shortcut in the saved
// form, such as command for the Super key.
[[nodiscard]] std::uint16_t modifierMask(std::uint64_t shortcutModifiers);

// Every state that the lock keys (Caps, Num, Scroll) can be in, none first. A
// shortcut has to work in all of them.
[[nodiscard]] std::vector<std::uint16_t> lockStates();

} // namespace X11Keyboard
