#pragma once

class QWidget;

// Brings every key press to one window of this program, before the desktop's own
// shortcuts and the program's.
class KeyboardGrab {
public:
    virtual ~KeyboardGrab() = default;

    // From now on, or as soon as nobody else holds the keyboard, until it is
    // released. Where there is no such thing, the window gets only the keys
    // that it would get anyway.
    virtual void take(QWidget &window) = 0;

    // Harmless when nothing was taken.
    virtual void release() = 0;
};
