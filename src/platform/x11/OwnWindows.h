#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

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
    // Shows the windows again where they were. The one that had the keyboard has
    // it again, the others do not take it.
    void restore();

    // Marks a window as part of a session, so that it is left alone.
    static void exempt(QWidget &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void keepPixelsBelow(bool wanted);

    std::vector<QPointer<QWidget>> m_hidden;
    QPointer<QWidget> m_active; // one of the hidden, or none
    bool m_pixelsKept = false;
};
