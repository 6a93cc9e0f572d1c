#pragma once

#include "platform/ScreenGrabber.h"
#include "platform/x11/SharedPictures.h"

#include <memory>

class OwnWindows;

// Reads the root window, one monitor after another.
class X11ScreenGrabber final : public ScreenGrabber {
public:
    // The own windows are hidden here and shown again by whoever ends the
    // session.
    explicit X11ScreenGrabber(std::shared_ptr<OwnWindows> ownWindows) : m_ownWindows(std::move(ownWindows)) {}

    // An X server hides nothing from its clients, but one that serves old
    // programs inside a Wayland session has no screen to show.
    bool accessGranted() override;
    void requestAccess() override {}
    bool openAccessSettings() override;

    QCoro::Task<std::optional<std::vector<ScreenShot>>> grabScreens() override;

private:
    [[nodiscard]] ScreenShot shoot(QScreen &screen, const QRect &area);
    [[nodiscard]] QImage grab(QScreen &screen, const QRect &area);

    std::shared_ptr<OwnWindows> m_ownWindows;
    SharedPictures m_pictures;
};
