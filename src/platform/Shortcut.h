#pragma once

#include <cstdint>

// Describes a key position with its modifiers. Codes and masks keep the values of
// the saved form; KeyCodes translates them.
struct Shortcut {
    static constexpr std::uint64_t shift = 0x20000;
    static constexpr std::uint64_t control = 0x40000;
    static constexpr std::uint64_t option = 0x80000;
    static constexpr std::uint64_t command = 0x100000;
    static constexpr std::uint64_t allModifiers = shift | control | option | command;

    std::uint32_t keyCode = 7; // the X key
    std::uint64_t modifiers = shift | command;

    friend bool operator==(const Shortcut &, const Shortcut &) = default;
};
