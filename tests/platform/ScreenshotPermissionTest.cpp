#include "platform/wayland/ScreenshotPermission.h"

#include "platform/ProgramId.h"

#include "support/SessionBusDaemon.h"
#include "support/TempHome.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

// The store is the desktops' own.
class ScreenshotPermissionTest : public QObject {
    Q_OBJECT

    TempHome home;
    SessionBusDaemon bus;
    QProcess store;

    static void answer(const QString &program, const QString &said)
    {
        const QString name = "org.freedesktop.impl.portal.PermissionStore";
        auto call = QDBusMessage::createMethodCall(name, "/org/freedesktop/impl/portal/PermissionStore", name,
                                                   "SetPermission");
        call << QStringLiteral("screenshot") << true << QStringLiteral("screenshot") << program
             << QStringList{said};
        const auto reply = QDBusConnection::sessionBus().call(call);
        QVERIFY2(reply.type() == QDBusMessage::ReplyMessage, qPrintable(reply.errorMessage()));
    }

    // The bus and the store answer in the order of the questions, so what was asked
    // before is known once this has been answered.
    static void hearEveryAnswer()
    {
        const QString name = "org.freedesktop.impl.portal.PermissionStore";
        auto call = QDBusMessage::createMethodCall(name, "/org/freedesktop/impl/portal/PermissionStore", name,
                                                   "Lookup");
        call << QStringLiteral("screenshot") << QStringLiteral("screenshot");
        const QDBusPendingCallWatcher answer(QDBusConnection::sessionBus().asyncCall(call));
        QSignalSpy heard(&answer, &QDBusPendingCallWatcher::finished);
        QTRY_COMPARE(heard.size(), 1);
    }

private slots:
    void initTestCase()
    {
        const QString data = home.path("data");
        QDir().mkpath(data + "/flatpak/db");
        qputenv("XDG_DATA_HOME", data.toLocal8Bit());
        store.start("/usr/libexec/xdg-permission-store", {});
        auto *daemon = QDBusConnection::sessionBus().interface();
        QTRY_VERIFY(daemon->isServiceRegistered("org.freedesktop.impl.portal.PermissionStore"));
    }

    void cleanupTestCase()
    {
        store.terminate();
        store.waitForFinished();
    }

    void whoWasNeverAskedIsNotRefused()
    {
        const ScreenshotPermission permission;
        hearEveryAnswer();
        QVERIFY(!permission.refused());
    }

    void theAnswerIsFollowed()
    {
        const ScreenshotPermission permission;
        answer("", "no");
        QTRY_VERIFY(permission.refused());
        answer("", "yes");
        QTRY_VERIFY(!permission.refused());
        answer("some.other.Program", "no");
        answer(programId(), "no");
        QTRY_VERIFY(permission.refused());
    }

    void anOldAnswerIsRemembered()
    {
        answer("", "no");
        const ScreenshotPermission permission;
        QTRY_VERIFY(permission.refused());
    }

    void aForgottenAnswerIsAskedForAgain()
    {
        answer("", "no");
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
        answer("", "no");
        QVERIFY(QDBusConnection::sessionBus().registerService("org.kde.KWin"));
        const ScreenshotPermission permission;
        hearEveryAnswer();
        QVERIFY(!permission.refused());
        QDBusConnection::sessionBus().unregisterService("org.kde.KWin");
    }
};

QTEST_GUILESS_MAIN(ScreenshotPermissionTest)
#include "ScreenshotPermissionTest.moc"
