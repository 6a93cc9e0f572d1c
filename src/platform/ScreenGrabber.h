#pragma once

#include "base/ScreenShot.h"

#include <QCoroTask>

#include <optional>
#include <vector>

// Takes still pictures of the screens.
class ScreenGrabber {
public:
    virtual ~ScreenGrabber() = default;

    // Returns whether the system lets this program see the screens.
    [[nodiscard]] virtual bool accessGranted() = 0;
    // Makes the system ask the user, once, and does not wait for the answer.
    virtual void requestAccess() = 0;
    // Opens the page of the system's settings where access is granted. Returns
    // false when this system has no such page.
    [[nodiscard]] virtual bool openAccessSettings() = 0;

    // Returns one picture per screen, in the order of the system's list, in device
    // pixels, without the pointer. The screen under the pointer is read last. A
    // screen that cannot be matched is left out; one that could not be read has a
    // null image. Absent when the system refuses altogether.
    [[nodiscard]] virtual QCoro::Task<std::optional<std::vector<ScreenShot>>> grabScreens() = 0;
};
