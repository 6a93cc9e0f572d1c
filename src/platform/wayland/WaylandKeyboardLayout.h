#pragma once

#include "platform/KeyboardLayout.h"

#include <QByteArray>

#include <wayland-client.h>

#include <memory>

class QtQueue;

// Reads the keymap that the compositor hands to every program with a keyboard. Which of
// its layouts is in use is known since one of our windows had the keyboard last.
class WaylandKeyboardLayout final : public KeyboardLayout {
public:
    explicit WaylandKeyboardLayout(std::shared_ptr<QtQueue> queue);
    ~WaylandKeyboardLayout() override;
    Q_DISABLE_COPY_MOVE(WaylandKeyboardLayout)

    // Takes a few milliseconds; not for a hot path.
    std::optional<QString> textOfKey(std::uint32_t evdevCode) const override;

private:
    void followSeat(bool hasKeyboard);
    void readKeymap(std::uint32_t format, int file, std::uint32_t size);

    std::shared_ptr<QtQueue> m_queue;
    wl_seat *m_seat;                   // null where there is none
    wl_keyboard *m_keyboard = nullptr; // null while the seat has none
    QByteArray m_keymap;               // as text; empty before the first one
    std::uint32_t m_layout = 0;
};
