#include "platform/x11/X11HotKeys.h"

#include "platform/KeyCodes.h"
#include "platform/x11/Keyboard.h"
#include "platform/x11/X11KeyboardGrab.h"
#include "platform/x11/Xcb.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <utility>

X11HotKeys::X11HotKeys(const X11KeyboardGrab &recorder) : m_recorder(recorder)
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11HotKeys::~X11HotKeys() { unregisterShortcut(); }

bool X11HotKeys::registerShortcut(const Shortcut &shortcut)
{
    const auto position = KeyCodes::toEvdev(shortcut.keyCode);
    if (!position)
        return false;
    Grabs granted{.keyCode = static_cast<std::uint8_t>(*position + KeyCodes::nativeOffset), .masks = {}};
    const std::uint16_t modifiers = X11Keyboard::modifierMask(shortcut.modifiers);
    auto *c = Xcb::connection();
    for (const std::uint16_t locks : X11Keyboard::lockStates()) {
        const auto mask = static_cast<std::uint16_t>(modifiers | locks);
        // Not to the own windows first: the shortcut is for the program, not for
        // whatever of it has the focus.
        const auto cookie = xcb_grab_key_checked(c, 0, Xcb::root(), mask, granted.keyCode,
                                                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        if (const Xcb::Reply<xcb_generic_error_t> error(xcb_request_check(c, cookie)); error) {
            giveUp(granted, m_grabs);
            return false;
        }
        granted.masks.push_back(mask);
    }
    giveUp(std::exchange(m_grabs, granted), granted);
    return true;
}

void X11HotKeys::unregisterShortcut() { giveUp(std::exchange(m_grabs, {}), {}); }

// The two may overlap: the server counts a grab once, however often it is asked for.
void X11HotKeys::giveUp(const Grabs &grabs, const Grabs &butNot)
{
    auto *c = Xcb::connection();
    for (const std::uint16_t mask : grabs.masks)
        if (grabs.keyCode != butNot.keyCode || std::ranges::find(butNot.masks, mask) == butNot.masks.end())
            xcb_ungrab_key(c, grabs.keyCode, Xcb::root(), mask);
    xcb_flush(c);
}

// A key that is held repeats itself: it is released and pressed in one moment, and
// stays taken even if its modifiers have been let go meanwhile.
bool X11HotKeys::takePress(const xcb_key_press_event_t &key)
{
    constexpr unsigned buttonsFrom = 0x100;
    const bool repeated = m_lastRelease == key.time;
    const auto modifiers = static_cast<std::uint16_t>(key.state % buttonsFrom);
    m_down = repeated || std::ranges::find(m_grabs.masks, modifiers) != m_grabs.masks.end();
    if (m_down && !repeated && onPressed)
        QTimer::singleShot(0, QCoreApplication::instance(), onPressed);
    return m_down;
}

bool X11HotKeys::takeRelease(const xcb_key_press_event_t &key)
{
    if (!std::exchange(m_down, false))
        return false;
    m_lastRelease = key.time;
    return true;
}

bool X11HotKeys::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (m_grabs.keyCode == 0 || eventType != "xcb_generic_event_t" || m_recorder.wanted())
        return false;
    constexpr unsigned sentBit = 0x80;
    const unsigned type = static_cast<xcb_generic_event_t *>(message)->response_type & ~sentBit;
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
        return false;
    const auto &key = *static_cast<xcb_key_press_event_t *>(message);
    if (key.detail != m_grabs.keyCode)
        return false;
    return type == XCB_KEY_PRESS ? takePress(key) : takeRelease(key);
}
