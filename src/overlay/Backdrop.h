#pragma once

#include "capture/ScreenShot.h"

#include <QImage>
#include <QRegion>

#include <optional>

class QPainter;

// The frozen screen under everything, dimmed outside the selection. The dimmed
// picture is made once: the glow alone asks for much of it sixty times a second.
class Backdrop {
public:
    // The shot must outlive it.
    explicit Backdrop(const ScreenShot &shot) : m_shot(shot) {}

    // Paints only the exposed part (widget points, y downwards) and never
    // resamples: one pixel of the picture is one pixel of the screen.
    void draw(QPainter &painter, const std::optional<QRectF> &selection, const QRegion &exposed);

private:
    const ScreenShot &m_shot;
    QImage m_dimmed; // from the first painting on
};
