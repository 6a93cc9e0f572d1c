#pragma once

#include "marks/Annotation.h"

#include <QElapsedTimer>
#include <QRectF>
#include <QTimer>

#include <functional>
#include <optional>

// The short cross-fade from a hand-drawn stroke to the shape that has replaced
// it, which settles from a little larger.
class SnapFade {
public:
    SnapFade();

    // That part of the view looks different now, in view points.
    std::function<void(const QRectF &)> onFrame;

    // The mark has just become a shape and has its original.
    void start(const Annotation &mark);
    // Ends it before its time; the mark is to be drawn by others again.
    void stop();
    // Nobody else draws this mark for the moment.
    [[nodiscard]] bool draws(const Annotation &mark) const { return m_ghost && *m_ghost == mark; }
    [[nodiscard]] bool running() const { return m_ghost.has_value(); }
    void draw(QPainter &painter, const QRectF &exposed) const;

    // All that the fading to this mark may touch, in view points.
    [[nodiscard]] static QRectF area(const Annotation &mark);

private:
    void step();
    [[nodiscard]] double progress() const;

    std::optional<Annotation> m_ghost; // present while it fades
    QElapsedTimer m_since;
    QTimer m_timer;
};
