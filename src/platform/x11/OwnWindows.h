#pragma once

#include "platform/freedesktop/OrdinaryWindows.h"

#include <QObject>

// Keeps this program's own windows out of a picture of the screen.
//
// Without a compositor the windows below an own one would have to repaint when
// it goes, which may take them any time. The server is therefore asked to keep
// every window's pixels for as long as an own window shows.
class OwnWindows final : public QObject {
public:
    OwnWindows();
    ~OwnWindows() override;

    // Takes every ordinary own window off the screen and waits until the screen
    // no longer shows it, half a second at most. Open menus are closed.
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
