#pragma once

#include <QImage>
#include <QRect>
#include <QScreen>
#include <QSizeF>

// Holds one display as it was when the capture began. Any room may name this plain
// record.
struct ScreenShot {
    QScreen *screen = nullptr;
    // Device pixels, top row first, RGB32. What stands where their opacity would be
    // means nothing, because filling it in would be felt in the time that a capture takes.
    QImage image;
    double scale = 1; // pixels per point, perhaps fractional
    QSizeF pointSize; // image size divided by scale
    // Where it lies among the other screens, as the system counts: in points, or in
    // device pixels where all screens share them.
    QRect place = {};
};
