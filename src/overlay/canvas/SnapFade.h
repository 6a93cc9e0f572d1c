#pragma once

#include "marks/Annotation.h"

#include <QElapsedTimer>
#include <QRectF>
#include <QTimer>

#include <functional>
#include <optional>

// Cross-fades briefly from a hand-drawn stroke to the shape that has replaced it,
// which shrinks to its size from a little larger.
class SnapFade {
public:
    SnapFade();

    // Called with the part of the view that looks different now, in view points.
    std::function<void(const QRectF &)> onFrame;

    // Starts the fade to a mark that has just become a shape and holds its original
    // stroke.
    void start(const Annotation &mark);
    // Ends the fade before its time, so that others draw the mark again.
    void stop();
    // Returns whether this fade draws the mark at the moment, so that nobody else
    // should.
    [[nodiscard]] bool draws(const Annotation &mark) const { return m_ghost && *m_ghost == mark; }
    [[nodiscard]] bool running() const { return m_ghost.has_value(); }
    void draw(QPainter &painter, const QRectF &exposed) const;

    // Returns the area that the fade to this mark may touch, in view points.
    [[nodiscard]] static QRectF area(const Annotation &mark);

private:
    void step();
    [[nodiscard]] double progress() const;

    std::optional<Annotation> m_ghost; // the mark while it fades in; absent otherwise
    QElapsedTimer m_since;
    QTimer m_timer;
};
