#pragma once

#include <QImage>
#include <QScreen>
#include <QSizeF>

// One display as it was when the capture began. A plain record that any room
// may name.
struct ScreenShot {
    QScreen *screen = nullptr;
    QImage image;     // device pixels, top row first, opaque
    double scale = 1; // pixels per point, also fractional
    QSizeF pointSize; // image size divided by scale
};
