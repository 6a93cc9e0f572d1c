#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

// Moves a mouse in fractions of view points, y upwards, as happens on a dense
// screen. The position in the widget is rounded to whole points, as Qt does it.
class Mouse {
public:
    explicit Mouse(QWidget &view, double height) : m_view(view), m_height(height) {}

    void press(QPointF at, Qt::KeyboardModifiers modifiers = {})
    {
        send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, modifiers);
    }
    // The second press of a double click, which comes as an event of its own kind.
    void pressAgain(QPointF at) { send(QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton, {}); }
    void move(QPointF to, Qt::KeyboardModifiers modifiers = {})
    {
        send(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, modifiers);
    }
    void hover(QPointF to, Qt::KeyboardModifiers modifiers = {})
    {
        send(QEvent::MouseMove, to, Qt::NoButton, Qt::NoButton, modifiers);
    }
    void release(QPointF at) { send(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, {}); }

    void drag(QPointF from, QPointF to, Qt::KeyboardModifiers modifiers = {})
    {
        press(from, modifiers);
        move((from + to) / 2, modifiers);
        move(to, modifiers);
        release(to);
    }

private:
    void send(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons,
              Qt::KeyboardModifiers modifiers)
    {
        const QPointF down(at.x(), m_height - at.y());
        const QPointF rounded(down.toPoint());
        QMouseEvent event(type, rounded, down, rounded, button, buttons, modifiers);
        QCoreApplication::sendEvent(&m_view, &event);
    }

    QWidget &m_view;
    double m_height;
};
