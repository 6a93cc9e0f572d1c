#include "platform/wayland/ScreenshotPermission.h"

#include "platform/ProgramId.h"

#include "support/PermissionStore.h"
#include "support/SessionBusDaemon.h"
#include "support/TempHome.h"

#include <QDBusPendingCallWatcher>
#include <QSignalSpy>
#include <QTest>

class ScreenshotPermissionTest : public QObject {
    Q_OBJECT

    TempHome home;
    SessionBusDaemon bus;
    PermissionStore store;

    // The bus and the store answer in the order of the questions, so what was asked
    // before is known once this has been answered.
    static void hearEveryAnswer()
    {
        const QDBusPendingCallWatcher answer(
            QDBusConnection::sessionBus().asyncCall(PermissionStore::lookUp()));
        QSignalSpy heard(&answer, &QDBusPendingCallWatcher::finished);
        QTRY_COMPARE(heard.size(), 1);
    }

private slots:
    void initTestCase() { store.start(home); }

    void whoWasNeverAskedIsNotRefused()
    {
        const ScreenshotPermission permission;
        hearEveryAnswer();
        QVERIFY(!permission.refused());
    }

    void theAnswerIsFollowed()
    {
        const ScreenshotPermission permission;
        PermissionStore::answer("", "no");
        QTRY_VERIFY(permission.refused());
        PermissionStore::answer("", "yes");
        QTRY_VERIFY(!permission.refused());
        PermissionStore::answer("some.other.Program", "no");
        PermissionStore::answer(programId(), "no");
        QTRY_VERIFY(permission.refused());
    }

    void aForgottenAnswerIsAskedForAgain()
    {
        PermissionStore::answer("", "no");
        ScreenshotPermission permission;
        QTRY_VERIFY(permission.refused());
        permission.forget();
        QVERIFY(!permission.refused());
        // It is gone for others as well.
        ScreenshotPermission another;
        hearEveryAnswer();
        QVERIFY(!another.refused());
    }

    void kwinDoesNotAsk()
    {
        PermissionStore::answer("", "no");
        QVERIFY(QDBusConnection::sessionBus().registerService("org.kde.KWin"));
        const ScreenshotPermission permission;
        hearEveryAnswer();
        QVERIFY(!permission.refused());
        QDBusConnection::sessionBus().unregisterService("org.kde.KWin");
    }
};

QTEST_GUILESS_MAIN(ScreenshotPermissionTest)
#include "ScreenshotPermissionTest.moc"
