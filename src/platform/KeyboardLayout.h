#pragma once

#include <QString>

#include <cstdint>
#include <optional>

// Tells what the keys type on the current layout.
class KeyboardLayout {
public:
    virtual ~KeyboardLayout() = default;

    // Returns what the key at a position types without modifiers, as printed on the
    // key cap or in lower case; absent when it types nothing or when there is no
    // layout to ask. The position is an evdev code.
    [[nodiscard]] virtual std::optional<QString> textOfKey(std::uint32_t evdevCode) const = 0;
    // The same with Shift held.
    [[nodiscard]] virtual std::optional<QString> shiftedTextOfKey(std::uint32_t) const
    {
        return std::nullopt;
    }
};
