#pragma once

#include "base/ScreenShot.h"

#include <QImage>
#include <QRegion>

class QPainter;

// Paints the frozen screen under everything else, dimmed outside the selection. A
// glow that is dragged or flashes asks for much of the dimmed picture in every
// frame.
class Backdrop {
public:
    // Takes the shot, which must outlive this object.
    explicit Backdrop(const ScreenShot &shot) : m_shot(shot) {}

    // Returns the whole picture dimmed. Any thread may call this; at 4K it takes
    // longer than one step of a drag may.
    [[nodiscard]] static QImage dimmed(const QImage &picture);
    // Uses this dimmed picture from now on, instead of dimming what is exposed.
    void keepDimmed(const QImage &picture) { m_dimmed = picture; }

    // Paints only the exposed part, undimmed where it is bright. Everything is in
    // device pixels, in which the painter counts too. The picture is never
    // resampled: one pixel of it is one pixel of the screen.
    void draw(QPainter &painter, const QRect &bright, const QRegion &exposed) const;

private:
    void drawDimmed(QPainter &painter, const QRect &pixels) const;

    const ScreenShot &m_shot;
    QImage m_dimmed; // null until it has been made
};
