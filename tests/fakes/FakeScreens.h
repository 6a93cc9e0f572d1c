#pragma once

#include "platform/ScreenGrabber.h"
#include "support/Pictures.h"

#include <QGuiApplication>
#include <QScreen>

// Shows the pattern on the screens of the offscreen platform.
class FakeScreens final : public ScreenGrabber {
public:
    bool accessGranted() override { return granted; }
    void requestAccess() override { ++requests; }
    bool openAccessSettings() override
    {
        ++settingsOpened;
        return hasSettings;
    }

    QCoro::Task<std::optional<std::vector<ScreenShot>>> grabScreens() override
    {
        ++grabs;
        std::vector<ScreenShot> shots;
        for (QScreen *screen : QGuiApplication::screens())
            shots.push_back(patternShot(screen->geometry().size(), screen->devicePixelRatio(), screen));
        if (oneFails)
            shots.back().image = {};
        if (!anyMatches)
            shots.clear();
        co_return works ? std::optional(shots) : std::nullopt;
    }

    bool granted = true;
    bool works = true;
    bool oneFails = false;
    bool anyMatches = true;
    bool hasSettings = true;
    int requests = 0;
    int settingsOpened = 0;
    int grabs = 0;
};
