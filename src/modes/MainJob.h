#pragma once

#include "base/ScreenShot.h"
#include "modes/Album.h"
#include "modes/Report.h"

#include <vector>

class OverlayView;
struct Platform;

// Does the program's main job once, from the screens to the clipboard, and reports
// on each step. Each step needs the ones before.
class MainJob {
public:
    MainJob(Platform &platform, Report &report, Album &album);

    // Returns whether every step works.
    [[nodiscard]] bool run();

private:
    [[nodiscard]] bool capture();
    [[nodiscard]] bool edit();
    [[nodiscard]] bool mark(OverlayView &view);
    [[nodiscard]] bool copy(OverlayView &view);

    Platform &m_platform;
    Report &m_report;
    Album &m_album;
    std::vector<ScreenShot> m_shots;
};
