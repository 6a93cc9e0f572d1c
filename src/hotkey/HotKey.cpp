#include "hotkey/HotKey.h"

#include "platform/HotKeyService.h"

HotKey::HotKey(HotKeyService &service, std::function<void()> action) : m_service(service)
{
    m_service.onPressed = std::move(action);
}

bool HotKey::registerShortcut(const Shortcut &shortcut) { return m_service.registerShortcut(shortcut); }
