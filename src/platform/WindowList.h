#pragma once

#include "base/ScreenShot.h"

#include <QRect>

#include <vector>

// Knows where the windows of other programs were when the screens froze.
class WindowList {
public:
    virtual ~WindowList() = default;

    // Asks where the windows are now, and does not wait for what can be told later.
    // Must be called as soon as the screens have been read, while this program's own
    // windows are hidden.
    virtual void freeze() = 0;

    // Returns the frames of the windows on that screen, the topmost window first: with
    // their title bars, without their shadows, cut off at the edges of the screen, in
    // device pixels of its picture, y downwards. Empty where the desktop does not tell,
    // or has not told yet.
    [[nodiscard]] virtual std::vector<QRect> framesOn(const ScreenShot &shot) = 0;

    // Forgets everything, also what is still on its way.
    virtual void forget() = 0;
};
