#pragma once

#include "hotkey/Shortcut.h"

#include <functional>

class HotKeyService;

// The program's one global shortcut.
class HotKey {
public:
    // The service must outlive it. The action is called on the main thread at
    // every press.
    HotKey(HotKeyService &service, std::function<void()> action);

    // Gives up the shortcut in force and takes the new one. False when the
    // system refuses; then nothing is in force, and the caller restores what
    // should be.
    [[nodiscard]] bool registerShortcut(const Shortcut &shortcut);

private:
    HotKeyService &m_service;
};
