#pragma once

#include "platform/Shortcut.h"

class LoginItem;

// Reads and writes the user's preferences.
namespace Prefs {

// Returns the stored shortcut, or the default when nothing usable is stored.
[[nodiscard]] Shortcut shortcut();
void setShortcut(const Shortcut &shortcut);

// Returns the desktop's own state, so a refusal shows as off.
[[nodiscard]] bool launchAtLogin(const LoginItem &item);
void setLaunchAtLogin(LoginItem &item, bool wanted);

} // namespace Prefs
