#pragma once

#include "platform/WindowPlacer.h"
#include "platform/x11/X11KeyboardGrab.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <xcb/xcb.h>

#include <memory>
#include <optional>

class OwnWindows;

// Places windows that no window manager manages: they appear at once where they are
// put, above panels and full-screen programs. The price is that nobody focuses
// them, so the keyboard is taken from the X server directly.
class X11WindowPlacer final : public QObject, public WindowPlacer {
public:
    explicit X11WindowPlacer(std::shared_ptr<OwnWindows> ownWindows);

    void beginSession() override;
    void cover(QWidget &window, QScreen &screen) override;
    void giveKeyboard(QWidget &window) override;
    QScreen *screenUnderPointer() const override;
    void endSession() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Focus {
        xcb_window_t window;
        std::uint8_t revertTo;
    };

    void putAbove(QWidget &dialog);

    std::shared_ptr<OwnWindows> m_ownWindows;
    std::optional<Focus> m_former; // who had the keyboard; present during a session
    QPointer<QWidget> m_keyWindow;
    X11KeyboardGrab m_keyboard;
};
