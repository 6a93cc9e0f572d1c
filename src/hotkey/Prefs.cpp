#include "hotkey/Prefs.h"

#include "base/Defaults.h"
#include "hotkey/ShortcutForm.h"
#include "platform/LoginItem.h"

namespace Prefs {

Shortcut shortcut()
{
    return ShortcutForm::fromJson(Defaults::value(Defaults::shortcutKey).toByteArray()).value_or(Shortcut{});
}

void setShortcut(const Shortcut &shortcut)
{
    Defaults::setValue(Defaults::shortcutKey, ShortcutForm::toJson(shortcut));
}

bool launchAtLogin(const LoginItem &item) { return item.enabled(); }

void setLaunchAtLogin(LoginItem &item, bool wanted)
{
    if (wanted)
        item.enable();
    else
        item.disable();
}

} // namespace Prefs
