#pragma once

#include "overlay/Annotation.h"

#include <QElapsedTimer>
#include <QRectF>
#include <QTimer>

#include <functional>

// The short cross-fade from a hand-drawn stroke to the shape that has replaced
// it, which settles from a little larger.
class SnapFade {
public:
    SnapFade();

    // That part of the view looks different now, in view points.
    std::function<void(const QRectF &)> onFrame;

    // The mark has just become a shape and has its original.
    void start(AnnotationPtr mark);
    // Nobody else draws this mark for the moment.
    [[nodiscard]] bool draws(const AnnotationPtr &mark) const { return m_ghost && m_ghost == mark; }
    [[nodiscard]] bool running() const { return m_ghost != nullptr; }
    void draw(QPainter &painter, const QRectF &exposed) const;

    // All that the fading to this mark may touch, in view points.
    [[nodiscard]] static QRectF area(const Annotation &mark);

private:
    void step();
    [[nodiscard]] double progress() const;

    AnnotationPtr m_ghost; // present while it fades
    QElapsedTimer m_since;
    QTimer m_timer;
};
