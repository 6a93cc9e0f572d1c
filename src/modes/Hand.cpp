#include "modes/Hand.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

namespace {

constexpr int notch = 120; // eighths of a degree

} // namespace

void Hand::send(int type, QPointF at, bool held)
{
    m_at = at;
    const bool moves = type == QEvent::MouseMove;
    QMouseEvent event(static_cast<QEvent::Type>(type), at, at, at, moves ? Qt::NoButton : Qt::LeftButton,
                      held ? Qt::LeftButton : Qt::NoButton, m_held);
    QCoreApplication::sendEvent(&m_widget, &event);
}

void Hand::press(QPointF at) { send(QEvent::MouseButtonPress, at, true); }

void Hand::move(QPointF to) { send(QEvent::MouseMove, to, true); }

void Hand::hover(QPointF to) { send(QEvent::MouseMove, to, false); }

void Hand::release() { send(QEvent::MouseButtonRelease, m_at, false); }

void Hand::stroke(const QList<QPointF> &path)
{
    press(path.first());
    for (const QPointF at : path.mid(1))
        move(at);
}

void Hand::drag(const QList<QPointF> &path)
{
    stroke(path);
    release();
}

void Hand::click(QPointF at)
{
    press(at);
    release();
}

void Hand::turnWheel(QPointF at, int notches)
{
    QWheelEvent event(at, at, {}, {0, notch * notches}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(&m_widget, &event);
}

void Hand::key(QKeyCombination combination, const QString &text)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
        sendKey(type, combination, text);
}

void Hand::hold(Qt::Key key) { sendKey(QEvent::KeyPress, key, {}); }

void Hand::sendKey(int type, QKeyCombination combination, const QString &text)
{
    QWidget *focus = m_widget.focusWidget();
    QKeyEvent event(static_cast<QEvent::Type>(type), combination.key(), combination.keyboardModifiers(),
                    text);
    QCoreApplication::sendEvent(focus ? focus : &m_widget, &event);
}

void Hand::type(const QString &text)
{
    for (const QChar letter : text)
        key(Qt::Key_unknown, letter);
}
