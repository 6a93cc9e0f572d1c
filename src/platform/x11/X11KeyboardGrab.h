#pragma once

#include "platform/KeyboardGrab.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

// An active grab of the keyboard: while it is held, the server knows no
// shortcuts. It ends by itself when this program does.
class X11KeyboardGrab final : public KeyboardGrab {
public:
    X11KeyboardGrab();
    ~X11KeyboardGrab() override;

    void take(QWidget &window) override;
    void release() override;

    // Whether it is held, or asked for until another program lets go.
    [[nodiscard]] bool wanted() const { return m_wanted; }

private:
    void grab();

    QPointer<QWidget> m_window;
    bool m_wanted = false;
    QTimer m_retry;
};
