#pragma once

#include <QKeyCombination>
#include <QList>
#include <QPointF>
#include <QString>

class QWidget;

// A hand with a mouse and a keyboard for one widget. Positions are widget points,
// y downwards; what it does arrives at once.
class Hand {
public:
    explicit Hand(QWidget &widget) : m_widget(widget) {}

    void press(QPointF at);
    void move(QPointF to);
    void hover(QPointF to); // without a button
    void release();

    // From the first point through all others, a step at a time.
    void drag(const QList<QPointF> &path);
    // As drag, but the button stays down at the end.
    void stroke(const QList<QPointF> &path);
    void click(QPointF at);
    void turnWheel(QPointF at, int notches);

    void key(QKeyCombination combination, const QString &text = {});
    void type(const QString &text);

private:
    void send(int type, QPointF at, bool held);

    QWidget &m_widget;
    QPointF m_at;
};
