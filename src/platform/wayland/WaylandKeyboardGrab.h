#pragma once

#include "platform/KeyboardGrab.h"

#include <memory>

class QtQueue;
struct zwp_keyboard_shortcuts_inhibit_manager_v1;
struct zwp_keyboard_shortcuts_inhibitor_v1;

// Asks the compositor to leave its own shortcuts alone while the window has the keyboard.
// It may refuse, or ask the user first. Does nothing where it knows no such request.
class WaylandKeyboardGrab final : public KeyboardGrab {
public:
    explicit WaylandKeyboardGrab(std::shared_ptr<QtQueue> queue);
    ~WaylandKeyboardGrab() override;
    WaylandKeyboardGrab(const WaylandKeyboardGrab &) = delete;
    WaylandKeyboardGrab &operator=(const WaylandKeyboardGrab &) = delete;

    void take(QWidget &window) override;
    void release() override;

private:
    std::shared_ptr<QtQueue> m_queue;
    zwp_keyboard_shortcuts_inhibit_manager_v1 *m_manager;       // null where there is none
    zwp_keyboard_shortcuts_inhibitor_v1 *m_inhibitor = nullptr; // null while released
};
