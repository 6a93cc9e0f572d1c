#pragma once

#include "base/ScreenShot.h"

#include <QImage>
#include <QRegion>

class QPainter;

// The frozen screen under everything, dimmed outside the selection. A glow that
// is dragged or flashes asks for much of the dimmed picture with every frame.
class Backdrop {
public:
    // The shot must outlive it.
    explicit Backdrop(const ScreenShot &shot) : m_shot(shot) {}

    // The whole picture dimmed; any thread may make it. At 4K that takes longer
    // than a step of a drag may.
    [[nodiscard]] static QImage dimmed(const QImage &picture);
    // Uses it from now on, instead of dimming what is exposed.
    void keepDimmed(const QImage &picture) { m_dimmed = picture; }

    // Paints only the exposed part, undimmed where it is bright; all in device
    // pixels, in which the painter counts too. It never resamples: one pixel of
    // the picture is one pixel of the screen.
    void draw(QPainter &painter, const QRect &bright, const QRegion &exposed) const;

private:
    void drawDimmed(QPainter &painter, const QRect &pixels) const;

    const ScreenShot &m_shot;
    QImage m_dimmed; // null until it has been made
};
