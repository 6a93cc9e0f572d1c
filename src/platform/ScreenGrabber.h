#pragma once

#include "base/ScreenShot.h"

#include <QCoroTask>

#include <optional>
#include <vector>

// Takes still pictures of the screens.
class ScreenGrabber {
public:
    virtual ~ScreenGrabber() = default;

    // Whether the system lets this program see the screens.
    [[nodiscard]] virtual bool accessGranted() = 0;
    // Makes the system ask the user, once; the answer is not waited for.
    virtual void requestAccess() = 0;
    // Opens the page of the system's settings where access is given; false when
    // this system has no such page.
    [[nodiscard]] virtual bool openAccessSettings() = 0;

    // One picture a screen, in the order of the system's list, in device
    // pixels, without the pointer. The screen under the pointer is read last. A screen that cannot be matched
    // is left out, one that could not be read has no image. Absent when the system refuses altogether.
    [[nodiscard]] virtual QCoro::Task<std::optional<std::vector<ScreenShot>>> grabScreens() = 0;
};
