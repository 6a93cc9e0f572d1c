#pragma once

#include "platform/HotKeyService.h"

#include <QAbstractNativeEventFilter>

#include <xcb/xcb.h>

#include <vector>

// Grabs the key on the root window, once for every state of the lock keys.
class X11HotKeys final : public HotKeyService, public QAbstractNativeEventFilter {
public:
    X11HotKeys();
    ~X11HotKeys() override;

    bool registerShortcut(const Shortcut &shortcut) override;
    void unregisterShortcut() override;

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    struct Grabs {
        std::uint8_t keyCode = 0; // 0 while nothing is registered
        std::vector<std::uint16_t> masks;
    };

    [[nodiscard]] bool isPressedInOwnMenu(const xcb_key_press_event_t &key) const;
    static void giveUp(const Grabs &grabs, const Grabs &butNot);

    Grabs m_grabs;
    std::uint32_t m_lastRelease = 0; // server time, milliseconds
};
