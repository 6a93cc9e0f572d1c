#pragma once

class QScreen;
class QWidget;

// Puts windows above everything else on a screen for the duration of a session, and
// gives the keyboard to one of them.
class WindowPlacer {
public:
    virtual ~WindowPlacer() = default;

    // Hides this program's own windows and remembers who has the keyboard. Must be
    // called before the screens are read.
    virtual void beginSession() = 0;

    // Shows the window borderless, above everything, over the whole screen and
    // on every desktop.
    virtual void cover(QWidget &window, QScreen &screen) = 0;

    // Gives the keyboard to this covering window.
    virtual void giveKeyboard(QWidget &window) = 0;

    // Returns the screen under the pointer; null when the pointer is on none.
    [[nodiscard]] virtual QScreen *screenUnderPointer() const = 0;

    // Gives the keyboard back to its former owner and shows this program's own
    // windows again. Must be called while the overlays still show, because some
    // window managers would otherwise focus nobody. Harmless when no session is
    // open.
    virtual void endSession() = 0;
};
