#pragma once

#include "platform/Shortcut.h"

#include <functional>
#include <optional>

class HotKeyService;

// The program's one global shortcut.
class HotKey {
public:
    // The service must outlive it. The action is called on the main thread at
    // every press.
    HotKey(HotKeyService &service, std::function<void()> action);

    // Takes the new shortcut and then gives up the one in force. False when the
    // system refuses; what was in force stays so.
    [[nodiscard]] bool registerShortcut(const Shortcut &shortcut);

    // The shortcut in force.
    [[nodiscard]] std::optional<Shortcut> shortcut() const { return m_shortcut; }

private:
    HotKeyService &m_service;
    std::optional<Shortcut> m_shortcut;
};
