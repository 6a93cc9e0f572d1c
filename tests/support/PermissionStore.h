#pragma once

#include "support/TempHome.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QProcess>
#include <QTest>

// The desktops' own store of what users have allowed, in a home folder of the test's and on
// its bus.
class PermissionStore {
public:
    void start(const TempHome &home)
    {
        QDir().mkpath(home.path("data/flatpak/db"));
        qputenv("XDG_DATA_HOME", home.path("data").toLocal8Bit());
        m_process.start("/usr/libexec/xdg-permission-store", {});
        QTRY_VERIFY(QDBusConnection::sessionBus().interface()->isServiceRegistered(name));
    }
    ~PermissionStore()
    {
        m_process.terminate();
        m_process.waitForFinished();
    }

    [[nodiscard]] static QDBusMessage call(const QString &method, const QVariantList &arguments)
    {
        auto call = QDBusMessage::createMethodCall(name, "/org/freedesktop/impl/portal/PermissionStore", name,
                                                   method);
        call.setArguments(arguments);
        return call;
    }

    // Says what the user answered when this program wanted pictures of the screen.
    static void answer(const QString &program, const QString &said)
    {
        const auto reply = QDBusConnection::sessionBus().call(
            call("SetPermission", {"screenshot", true, "screenshot", program, QStringList{said}}));
        QVERIFY2(reply.type() == QDBusMessage::ReplyMessage, qPrintable(reply.errorMessage()));
    }

    // Asked after others, answered after them.
    [[nodiscard]] static QDBusMessage lookUp() { return call("Lookup", {"screenshot", "screenshot"}); }

private:
    static inline const QString name = "org.freedesktop.impl.portal.PermissionStore";

    QProcess m_process;
};
