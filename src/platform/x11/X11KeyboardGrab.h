#pragma once

#include "platform/KeyboardGrab.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

// Grabs the keyboard actively: while the grab is held, the X server recognises no
// shortcuts. It ends with this program at the latest.
class X11KeyboardGrab final : public KeyboardGrab {
public:
    X11KeyboardGrab();
    ~X11KeyboardGrab() override;

    void take(QWidget &window) override;
    void release() override;

    // Returns whether the grab is held, or is still being attempted because another
    // program holds the keyboard.
    [[nodiscard]] bool wanted() const { return m_wanted; }

private:
    void grab();

    QPointer<QWidget> m_window;
    bool m_wanted = false;
    QTimer m_retry;
};
