#pragma once

#include "platform/Shortcut.h"

class LoginItem;

// What the user has chosen, and keeps.
namespace Prefs {

// The default when nothing usable is stored.
[[nodiscard]] Shortcut shortcut();
void setShortcut(const Shortcut &shortcut);

// The desktop's own state, so a refusal shows as off.
[[nodiscard]] bool launchAtLogin(const LoginItem &item);
void setLaunchAtLogin(LoginItem &item, bool wanted);

} // namespace Prefs
