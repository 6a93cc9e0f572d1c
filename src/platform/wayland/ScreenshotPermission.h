#pragma once

#include <QCoroTask>
#include <QObject>
#include <QStringList>

class QDBusMessage;

// What the user has once answered to the desktop's question whether this program may
// see the screens. Read over the session bus without waiting and kept up to date.
// KWin does not ask.
class ScreenshotPermission final : public QObject {
    Q_OBJECT

public:
    ScreenshotPermission();

    // False also while unknown, and when the user has never been asked.
    [[nodiscard]] bool refused() const { return !m_refusals.isEmpty() && !m_kwin; }
    // Makes the desktop ask once more, the next time that the screens are read.
    void forget();

private slots:
    void changed(const QDBusMessage &message);

private:
    QCoro::Task<void> lookUp();
    QCoro::Task<void> lookForKWin();

    bool m_kwin = false;
    QStringList m_refusals; // the programs that the answer was about
};
