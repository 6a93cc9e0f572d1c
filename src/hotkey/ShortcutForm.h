#pragma once

#include "platform/Shortcut.h"

#include <QByteArray>
#include <QString>

#include <optional>

class KeyboardLayout;

// Converts a shortcut to its displayed form, and to and from its saved form.
namespace ShortcutForm {

// Returns the symbols ⌃⌥⇧⌘ in this order and the key's name, such as "⇧⌘X".
[[nodiscard]] QString display(const Shortcut &shortcut, const KeyboardLayout &layout);

// Returns the text with words for the symbols of keys, which can be read aloud and
// found on a keyboard: "Shift+Super+X".
[[nodiscard]] QString inWords(const QString &text);

// Returns a localised or symbolic name for special keys, otherwise what the key
// types on the keyboard's layout, in upper case; "?" when it types nothing.
[[nodiscard]] QString keyName(std::uint32_t keyCode, const KeyboardLayout &layout);

// Returns the saved form, a JSON object.
[[nodiscard]] QByteArray toJson(const Shortcut &shortcut);
// Returns the shortcut only from two whole numbers in range.
[[nodiscard]] std::optional<Shortcut> fromJson(const QByteArray &json);

} // namespace ShortcutForm
