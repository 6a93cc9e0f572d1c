#pragma once

#include "platform/ScreenGrabber.h"
#include "platform/x11/SharedPictures.h"

// Reads the root window, one monitor after another.
class X11ScreenGrabber final : public ScreenGrabber {
public:
    // An X server hides nothing from its clients, but one that serves old
    // programs inside a Wayland session has no screen to show.
    bool accessGranted() override;
    void requestAccess() override {}
    bool openAccessSettings() override;

    QCoro::Task<std::optional<std::vector<ScreenShot>>> grabScreens() override;

private:
    [[nodiscard]] ScreenShot shoot(QScreen &screen, const QRect &area);
    [[nodiscard]] QImage grab(QScreen &screen, const QRect &area);

    SharedPictures m_pictures;
};
