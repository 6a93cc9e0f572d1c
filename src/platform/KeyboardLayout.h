#pragma once

#include <QString>

#include <cstdint>
#include <optional>

// What the keys type on the layout in use.
class KeyboardLayout {
public:
    virtual ~KeyboardLayout() = default;

    // What the key at a position types without modifiers, as it stands on the
    // key cap or in lower case; absent when it types nothing or when there is
    // no layout to ask. The position is an evdev code.
    [[nodiscard]] virtual std::optional<QString> textOfKey(std::uint32_t evdevCode) const = 0;
    // The same with Shift held.
    [[nodiscard]] virtual std::optional<QString> shiftedTextOfKey(std::uint32_t) const
    {
        return std::nullopt;
    }
};
