#pragma once

class QScreen;
class QWidget;

// Puts windows above everything else on a screen, for the time of a session,
// and hands the keyboard to one of them.
class WindowPlacer {
public:
    virtual ~WindowPlacer() = default;

    // Hides this program's own windows and remembers who has the keyboard. To be
    // called before the screens are read.
    virtual void beginSession() = 0;

    // Shows the window borderless, above everything, over the whole screen and
    // on every desktop.
    virtual void cover(QWidget &window, QScreen &screen) = 0;

    // From now on this covering window has the keyboard.
    virtual void giveKeyboard(QWidget &window) = 0;

    // The screen under the pointer; null when the pointer is on none.
    [[nodiscard]] virtual QScreen *screenUnderPointer() const = 0;

    // Gives the keyboard back to whom it was taken from and shows the own windows
    // again. To be called while the overlays still show, or some window managers
    // focus nobody. Harmless when no session is open.
    virtual void endSession() = 0;
};
