#include "access/Announcer.h"

#include "access/Spoken.h"

#include <QWidget>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto rest = 300ms; // of a hand that moves on, before it is told where it is

// Nothing to be seen. Screen readers read a notification when it comes up.
QWidget *makeNotification(QWidget &speaker)
{
    auto *notification = new QWidget(&speaker);
    Spoken::setRole(*notification, QAccessible::Notification);
    notification->setAttribute(Qt::WA_TransparentForMouseEvents);
    notification->setFocusPolicy(Qt::NoFocus);
    notification->setGeometry(0, 0, 1, 1);
    return notification;
}

} // namespace

Announcer::Announcer(QWidget &speaker) : m_speaker(speaker)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(rest);
    m_rest.callOnTimeout([this] {
        if (const QString text = m_next();
            !text.isEmpty() && (!m_notification || m_notification->accessibleName() != text))
            say(text);
    });
}

void Announcer::say(const QString &text)
{
    if (!QAccessible::isActive())
        return;
    if (!m_notification)
        m_notification = makeNotification(m_speaker);
    m_notification->hide();
    m_notification->setAccessibleName(text);
    m_notification->show();
}

void Announcer::sayAtRest(std::function<QString()> text)
{
    if (!QAccessible::isActive())
        return;
    m_next = std::move(text);
    m_rest.start();
}
