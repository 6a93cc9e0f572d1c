#pragma once

#include "platform/ScreenGrabber.h"
#include "platform/x11/SharedPictures.h"

// Reads the root window, one monitor after another.
class X11ScreenGrabber final : public ScreenGrabber {
public:
    // Returns false only for an X server that serves old programs inside a Wayland
    // session, because it has no screen to show. Any other X server hides nothing
    // from its clients.
    bool accessGranted() override;
    void requestAccess() override {}
    bool openAccessSettings() override;

    QCoro::Task<std::optional<std::vector<ScreenShot>>> grabScreens() override;

private:
    [[nodiscard]] ScreenShot shoot(QScreen &screen, const QRect &area);
    [[nodiscard]] QImage grab(QScreen &screen, const QRect &area);

    SharedPictures m_pictures;
};
