#pragma once

#include "platform/ScreenGrabber.h"

#include <memory>

class Connection;

// Makes the pictures of the screens of a Wayland session in the best way that the
// session offers: copied by the compositor into memory that is shared with it,
// for which there are two protocols, by KWin over the session bus, or by the desktop's
// portal. Copying needs no bus.
[[nodiscard]] std::unique_ptr<ScreenGrabber> makeWaylandScreenGrabber(std::shared_ptr<Connection> connection);
