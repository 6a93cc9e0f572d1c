#pragma once

#include "capture/ScreenShot.h"

#include <QCoroTask>

#include <optional>
#include <vector>

class ScreenGrabber;

// Still pictures of every screen.
namespace Capture {

// In the order of the system's screens; empty when none could be matched,
// absent when the system refused or failed, be it for one screen only.
[[nodiscard]] QCoro::Task<std::optional<std::vector<ScreenShot>>> captureAllScreens(ScreenGrabber &grabber);

} // namespace Capture
