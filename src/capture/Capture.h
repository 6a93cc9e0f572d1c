#pragma once

#include "base/ScreenShot.h"

#include <QCoroTask>

#include <optional>
#include <vector>

class ScreenGrabber;
class WindowList;
class WindowPlacer;

// Takes still pictures of every screen.
namespace Capture {

// Begins a session with the placer, reads the screens and asks where the windows
// are. Returns the pictures in the order of the system's screens: none if no screen
// could be matched, absent if the system refused or a single screen could not be
// read. The session stays open, and the windows known, only when there are pictures.
[[nodiscard]] QCoro::Task<std::optional<std::vector<ScreenShot>>> captureAllScreens(ScreenGrabber &grabber,
                                                                                    WindowPlacer &placer,
                                                                                    WindowList &windows);

} // namespace Capture
