#include "hotkey/HotKey.h"

#include "platform/HotKeyService.h"

HotKey::HotKey(HotKeyService &service, std::function<void()> action) : m_service(service)
{
    m_service.onPressed = std::move(action);
}

bool HotKey::registerShortcut(const Shortcut &shortcut)
{
    const bool taken = m_service.registerShortcut(shortcut);
    if (taken)
        m_shortcut = shortcut;
    return taken;
}
