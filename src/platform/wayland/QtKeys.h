#pragma once

#include "platform/Shortcut.h"

#include <QString>

#include <optional>

class KeyboardLayout;

// Other ways of naming a shortcut, for desktops that bind what a key types and not
// where it is. The layout may be absent; a key is then taken for the one on a US
// keyboard, as it is on layouts without Latin letters.
namespace QtKeys {

// Returns Qt's key with its modifiers, as KDE wants it; absent for a position that no
// keyboard has and for what KDE would take, but never bring: keys of the keypad, and a
// symbol with Shift where the layout does not tell what that types.
[[nodiscard]] std::optional<int> of(const Shortcut &shortcut, const KeyboardLayout *layout);

// Returns the form that the portal reads, such as "SHIFT+LOGO+x"; empty for a key that
// has no short name.
[[nodiscard]] QString triggerOf(const Shortcut &shortcut, const KeyboardLayout *layout);

} // namespace QtKeys
