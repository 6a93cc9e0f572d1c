#pragma once

#include <QKeyCombination>
#include <QList>
#include <QPointF>
#include <QString>

class QWidget;

// Acts as a hand with a mouse and a keyboard on one widget. Positions are widget
// points, y downwards. Every event is delivered at once.
class Hand {
public:
    explicit Hand(QWidget &widget) : m_widget(widget) {}

    void press(QPointF at);
    void move(QPointF to);
    void hover(QPointF to); // without a button
    void release();

    // Presses at the first point, moves in small steps through all others and
    // releases.
    void drag(const QList<QPointF> &path);
    // Does the same as drag(), but keeps the button down at the end.
    void stroke(const QList<QPointF> &path);
    void click(QPointF at);
    void turnWheel(QPointF at, int notches);

    // Keeps these keys down while the mouse does what follows.
    void hold(Qt::KeyboardModifiers keys) { m_held = keys; }
    void key(QKeyCombination combination, const QString &text = {});
    // Presses a key without letting it go.
    void hold(Qt::Key key);
    void type(const QString &text);

private:
    void send(int type, QPointF at, bool held);
    void sendKey(int type, QKeyCombination combination, const QString &text);

    QWidget &m_widget;
    QPointF m_at;
    Qt::KeyboardModifiers m_held;
};
