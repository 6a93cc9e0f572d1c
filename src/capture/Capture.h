#pragma once

#include "base/ScreenShot.h"

#include <QCoroTask>

#include <optional>
#include <vector>

class ScreenGrabber;
class WindowPlacer;

// Still pictures of every screen.
namespace Capture {

// Begins a session with the placer and reads the screens. Returns their pictures
// in the order of the system's screens; none when no screen could be matched,
// nothing when the system refused or failed, be it for one screen only. The
// session goes on only when there are pictures.
[[nodiscard]] QCoro::Task<std::optional<std::vector<ScreenShot>>> captureAllScreens(ScreenGrabber &grabber,
                                                                                    WindowPlacer &placer);

} // namespace Capture
