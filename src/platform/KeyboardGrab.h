#pragma once

class QWidget;

// Directs every key press to one window of this program, ahead of the desktop's own
// shortcuts and the program's.
class KeyboardGrab {
public:
    virtual ~KeyboardGrab() = default;

    // Takes the keyboard now, or as soon as nobody else holds it, until it is
    // released. Where the platform has no such grab, the window gets only the keys
    // that it would get anyway.
    virtual void take(QWidget &window) = 0;

    // Releases the keyboard. Harmless when nothing was taken.
    virtual void release() = 0;
};
