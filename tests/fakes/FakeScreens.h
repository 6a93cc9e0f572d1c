#pragma once

#include "platform/ScreenGrabber.h"
#include "support/Pictures.h"

#include <QGuiApplication>
#include <QScreen>

// The screens of the offscreen platform, showing the pattern.
class FakeScreens final : public ScreenGrabber {
public:
    bool accessGranted() override { return granted; }
    void requestAccess() override { ++requests; }
    void openAccessSettings() override { ++settingsOpened; }

    QCoro::Task<std::optional<std::vector<ScreenShot>>> grabScreens() override
    {
        ++grabs;
        std::vector<ScreenShot> shots;
        for (QScreen *screen : QGuiApplication::screens())
            shots.push_back(patternShot(screen->geometry().size(), screen->devicePixelRatio(), screen));
        co_return works ? std::optional(shots) : std::nullopt;
    }

    bool granted = true;
    bool works = true;
    int requests = 0;
    int settingsOpened = 0;
    int grabs = 0;
};
