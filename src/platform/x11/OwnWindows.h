#pragma once

#include "platform/freedesktop/OrdinaryWindows.h"

#include <QObject>

// Keeps this program's own windows out of a picture of the screen.
//
// Without a compositor, the windows below one of them would have to repaint when it
// is hidden, which may take them any length of time. The X server is therefore
// asked to keep every window's pixels for as long as a window of this program
// shows.
class OwnWindows final : public QObject {
public:
    OwnWindows();
    ~OwnWindows() override;

    // Hides every ordinary window of this program and waits until the screen no
    // longer shows it, for half a second at most. Open menus are closed.
    void hide();
    // Shows the windows again where they were.
    void restore();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void keepPixelsBelow(bool wanted);

    OrdinaryWindows m_windows;
    bool m_pixelsKept = false;
};
