#pragma once

#include "platform/Shortcut.h"

#include <functional>
#include <optional>

class HotKeyService;

// Holds the program's one global shortcut.
class HotKey {
public:
    // Takes the service, which must outlive this object, and the action, which is
    // called on the main thread at every press.
    HotKey(HotKeyService &service, std::function<void()> action);

    // Registers the new shortcut and then gives up the one in force. Returns false
    // when the system refuses; the one in force then stays.
    [[nodiscard]] bool registerShortcut(const Shortcut &shortcut);

    // Returns the shortcut in force.
    [[nodiscard]] std::optional<Shortcut> shortcut() const { return m_shortcut; }

private:
    HotKeyService &m_service;
    std::optional<Shortcut> m_shortcut;
};
