#pragma once

#include "platform/HotKeyService.h"

#include <QAbstractNativeEventFilter>

#include <xcb/xcb.h>

#include <optional>
#include <vector>

class X11KeyboardGrab;

// Grabs the key on the root window, once for every state of the lock keys. While
// this program holds the whole keyboard, as it does during a capture and while a
// menu is open, the X server recognises no shortcuts: the key press then goes to
// one of the program's own windows, and is intercepted there.
class X11HotKeys final : public HotKeyService, public QAbstractNativeEventFilter {
public:
    // Takes the recorder's grab, which must outlive this object. While the recorder
    // holds the keyboard, every key is meant for it.
    explicit X11HotKeys(const X11KeyboardGrab &recorder);
    ~X11HotKeys() override;

    bool registerShortcut(const Shortcut &shortcut) override;
    void unregisterShortcut() override;

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    struct Grabs {
        std::uint8_t keyCode = 0; // 0 while nothing is registered
        std::vector<std::uint16_t> masks;
    };

    // Both return whether the event goes no further.
    [[nodiscard]] bool takePress(const xcb_key_press_event_t &key);
    [[nodiscard]] bool takeRelease(const xcb_key_press_event_t &key);
    static void giveUp(const Grabs &grabs, const Grabs &butNot);

    const X11KeyboardGrab &m_recorder;
    Grabs m_grabs;
    bool m_down = false;                        // a press was taken and has not been released since
    std::optional<std::uint32_t> m_lastRelease; // of the key that was taken; server time, milliseconds
};
