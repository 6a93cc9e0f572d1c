#pragma once

#include <QtCore/qnamespace.h>

#include <cstdint>
#include <optional>

class QKeyEvent;

// Translates between three ways of naming a key's position: the virtual key codes
// of the saved shortcut, the kernel's evdev codes, and Qt's keys as a US keyboard
// types them.
namespace KeyCodes {

inline constexpr std::uint32_t returnKey = 36;
inline constexpr std::uint32_t tabKey = 48;
inline constexpr std::uint32_t spaceKey = 49;
inline constexpr std::uint32_t escapeKey = 53;
inline constexpr std::uint32_t keypadEnterKey = 76;

// The X server's and the compositor's key codes are the kernel's plus this offset.
inline constexpr std::uint32_t nativeOffset = 8;
// Returns the evdev code of the pressed key; absent when the event does not tell.
[[nodiscard]] std::optional<std::uint32_t> evdevOf(const QKeyEvent &event);

// Translate codes; absent for a code that no key here has.
[[nodiscard]] std::optional<std::uint32_t> toEvdev(std::uint32_t keyCode);
[[nodiscard]] std::optional<std::uint32_t> fromEvdev(std::uint32_t evdevCode);
[[nodiscard]] std::optional<Qt::Key> qtKeyAt(std::uint32_t evdevCode);

// Returns the key itself, or, on a keyboard that types no Latin letters, the key
// that its position types on a US keyboard. The position is an evdev code, 0 when
// unknown.
[[nodiscard]] Qt::Key latinKey(Qt::Key key, std::uint32_t evdevCode);
[[nodiscard]] Qt::Key latinKey(const QKeyEvent &event);

} // namespace KeyCodes
