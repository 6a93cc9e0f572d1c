#pragma once

#include "platform/HotKeyService.h"

#include <memory>

class KeyboardLayout;

// Makes the shortcut of a Wayland session, which only the desktop can grant: KDE
// through its own service, others through the portal, the rest not at all. The
// layout, which has to outlive it, tells what a key position types; without one it
// is taken for a US keyboard's.
[[nodiscard]] std::unique_ptr<HotKeyService> makeWaylandHotKeys(const KeyboardLayout *layout = nullptr);
