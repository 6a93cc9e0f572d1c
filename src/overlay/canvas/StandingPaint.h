#pragma once

#include "base/Bands.h"

#include <QPoint>
#include <QRegion>

class QPainter;
class QWidget;

// Remembers where a window still shows what was painted there last: the frozen screen
// with the finished marks, and nothing over them. A step that moves the marks leaves
// alone what stays the same there. Everything is in device pixels.
class StandingPaint {
public:
    // Takes the widget that is painted, which must outlive this object.
    explicit StandingPaint(const QWidget &widget) : m_widget(widget) {}

    // Returns the part on which the marks stand, as they were painted with this painter
    // last time, so far from where they were drawn as shift() says.
    [[nodiscard]] QRegion on(const QPainter &painter) const;
    [[nodiscard]] QPoint shift() const { return m_shift; }

    // Notes that a part has been painted with the marks there, and that there is nothing
    // over them on the bare pixels of it.
    void painted(const QPainter &painter, const QRegion &part, const QRegion &bare, QPoint shift);
    // Notes that something else is there, or may be.
    void lose(const QRegion &pixels) { m_stands -= pixels; }
    void loseAll() { m_stands = {}; }

private:
    const QWidget &m_widget;
    const void *m_memory = nullptr;
    QRegion m_stands;
    QPoint m_shift;
};
