#pragma once

#include <QPointer>
#include <QString>
#include <QTimer>

#include <functional>

class QWidget;

// Says aloud, through a screen reader, what others see happen. Without one it does
// nothing.
class Announcer {
public:
    // Speaks for the window that the widget is in. The widget must outlive this object.
    explicit Announcer(QWidget &speaker);
    Q_DISABLE_COPY_MOVE(Announcer)
    ~Announcer() = default;

    // Says it now, even when it is what was said last.
    void say(const QString &text);

    // Says what the function answers once nothing has been asked for for a moment. An
    // empty text is not said, nor what was said last.
    void sayAtRest(std::function<QString()> text);

private:
    QWidget &m_speaker;
    QPointer<QWidget> m_notification; // made with the first word
    std::function<QString()> m_next;
    QTimer m_rest;
};
