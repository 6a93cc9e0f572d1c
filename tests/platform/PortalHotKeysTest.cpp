#include "platform/wayland/WaylandHotKeys.h"

#include "support/SessionBusDaemon.h"
#include "support/TempHome.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using Binding = HotKeyService::Binding;

class PortalHotKeysTest : public QObject {
    Q_OBJECT

    TempHome home;
    SessionBusDaemon bus;
    std::optional<BusService> portal;
    std::unique_ptr<HotKeyService> keys;
    int presses = 0;

    static constexpr Shortcut otherShortcut{.keyCode = 96, .modifiers = Shortcut::control | Shortcut::option};

    void start(const QStringList &arguments = {})
    {
        portal.emplace("/usr/bin/python3",
                       QStringList{QFINDTESTDATA("../support/shortcuts_portal.py")} + arguments);
        make();
    }

    void make()
    {
        keys = makeWaylandHotKeys();
        keys->onPressed = [this] { ++presses; };
    }

    // Until whoever has the portal's name has answered what he was asked before.
    static void awaitPortal()
    {
        const auto ping = QDBusMessage::createMethodCall("org.freedesktop.portal.Desktop", "/",
                                                         "org.freedesktop.DBus.Peer", "Ping");
        const QDBusPendingCallWatcher answer(QDBusConnection("vellumora-atajos").asyncCall(ping));
        QVERIFY(QSignalSpy(&answer, &QDBusPendingCallWatcher::finished).wait());
    }

private slots:
    void cleanup()
    {
        keys.reset();
        portal.reset();
        presses = 0;
    }

    void theDesktopDecides()
    {
        start();
        // Nothing is waited for, and nothing promised that is not known.
        QVERIFY(!keys->registerShortcut(Shortcut{}));
        QVERIFY(!keys->registerShortcut(otherShortcut)); // the first one was the wish
        QCOMPARE(keys->binding(), Binding::nobody);
        QTRY_COMPARE(keys->boundKeys(), "keys SHIFT+LOGO+x");
        QCOMPARE(keys->binding(), Binding::desktop);
        portal->tell("press");
        QTRY_COMPARE(presses, 1);
    }

    void anotherShortcutIsAnotherProposal()
    {
        start();
        QVERIFY(!keys->registerShortcut(Shortcut{}));
        QTRY_COMPARE(keys->boundKeys(), "keys SHIFT+LOGO+x");
        QVERIFY(keys->registerShortcut(otherShortcut));
        QTRY_COMPARE(keys->boundKeys(), "keys CTRL+ALT+F5");
        QTRY_COMPARE(portal->said().count("closed"), 1); // what was bound before
        portal->tell("press");
        QTRY_COMPARE(presses, 1);
        portal->tell("keys Ctrl+9");
        QTRY_COMPARE(keys->boundKeys(), "Ctrl+9");
        keys->unregisterShortcut();
        QTRY_COMPARE(portal->said().count("closed"), 2);
        QCOMPARE(keys->boundKeys(), QString());
    }

    void theUserMayRefuse()
    {
        start({"refuses"});
        QVERIFY(!keys->registerShortcut(Shortcut{}));
        QTRY_VERIFY(home.log().contains("atajo: el portal no lo registra: cancelado"));
        QCOMPARE(keys->binding(), Binding::desktop);
        QCOMPARE(keys->boundKeys(), QString());
    }

    // A portal that knows nothing of shortcuts is like none.
    void withoutSuchAPortalNobodyBinds()
    {
        portal.emplace("/usr/bin/python3", QStringList{QFINDTESTDATA("../support/portal.py"), "nothing"});
        make();
        QVERIFY(!keys->registerShortcut(Shortcut{}));
        awaitPortal(); // he knows no introductions
        awaitPortal(); // nor a version
        QCOMPARE(keys->binding(), Binding::nobody);
        QVERIFY(!keys->registerShortcut(Shortcut{}));
    }

    void withoutABusNobodyBinds()
    {
        const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        make();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        QVERIFY(!keys->registerShortcut(Shortcut{}));
        QCOMPARE(keys->binding(), Binding::nobody);
    }
};

QTEST_MAIN(PortalHotKeysTest)
#include "PortalHotKeysTest.moc"
