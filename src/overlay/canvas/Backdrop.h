#pragma once

#include "base/ScreenShot.h"

#include <QImage>
#include <QRegion>

class Raster;

// Paints the frozen screen under everything else, dimmed outside the selection. It is
// dimmed anew wherever it is asked for: that costs little more than copying a picture
// that is dimmed already, and a second picture of every screen would stay in memory.
class Backdrop {
public:
    // Takes the shot, which must outlive this object.
    explicit Backdrop(const ScreenShot &shot) : m_shot(shot) {}

    // Returns that part of the screen dimmed, as RGB32, in device pixels. Null when
    // the shot does not cover it.
    [[nodiscard]] QImage dimmed(const QRect &pixels) const;

    // Writes only the exposed part, undimmed where it is bright. Everything is in
    // device pixels. The picture is never resampled: one pixel of it is one pixel of
    // the screen. Several threads may call this at once.
    void fill(const Raster &raster, const QRect &bright, const QRegion &exposed) const;

private:
    [[nodiscard]] const QRgb *at(int x, int y) const;
    void forRows(const Raster &raster, const QRect &rect, const auto &write) const;

    const ScreenShot &m_shot;
};
