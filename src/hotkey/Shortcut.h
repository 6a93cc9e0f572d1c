#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

class KeyboardLayout;

// A key position with its modifiers. Codes and masks keep the values of the
// saved form; platform/KeyCodes translates them.
struct Shortcut {
    static constexpr std::uint64_t shift = 0x20000;
    static constexpr std::uint64_t control = 0x40000;
    static constexpr std::uint64_t option = 0x80000;
    static constexpr std::uint64_t command = 0x100000;
    static constexpr std::uint64_t allModifiers = shift | control | option | command;

    std::uint32_t keyCode = 7; // the X key
    std::uint64_t modifiers = shift | command;

    friend bool operator==(const Shortcut &, const Shortcut &) = default;

    // The symbols ⌃⌥⇧⌘ in this order and the key's name, such as "⇧⌘X".
    [[nodiscard]] QString display(const KeyboardLayout &layout) const;

    // A localised or symbolic name for special keys, else what the key types on
    // the keyboard's layout, in upper case; "?" when that is nothing.
    [[nodiscard]] static QString keyName(std::uint32_t keyCode, const KeyboardLayout &layout);

    // The saved form, a JSON object. Anything else than two whole numbers in
    // range is not a shortcut.
    [[nodiscard]] QByteArray toJson() const;
    [[nodiscard]] static std::optional<Shortcut> fromJson(const QByteArray &json);
};
