#pragma once

#include <QString>

#include <cstdint>
#include <optional>

struct xkb_keymap;

// Reads from a keymap what its keys type.
namespace KeymapText {

// Returns what the key at a position types in one of the keymap's layouts while no other
// key is down, as KeyboardLayout has it. The position is an evdev code.
[[nodiscard]] std::optional<QString> ofKey(xkb_keymap &keymap, std::uint32_t layout, std::uint32_t evdevCode);

} // namespace KeymapText
