#pragma once

#include "platform/x11/Xcb.h"

// How the screens lie on the root window at this moment.
struct Desk {
    QHash<QString, QRect> monitors = Xcb::monitors();
    QRect root = Xcb::rootArea();

    // Returns the rectangle of the root window that the screen shows. Empty when the
    // screen is not there any more.
    [[nodiscard]] QRect place(const QScreen &screen) const;
};
