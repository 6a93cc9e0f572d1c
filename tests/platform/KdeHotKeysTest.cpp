#include "platform/wayland/WaylandHotKeys.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QTest>

// The service is KWin's own.
class KdeHotKeysTest : public QObject {
    Q_OBJECT

    std::unique_ptr<HotKeyService> keys = makeWaylandHotKeys();
    int presses = 0;

    static constexpr Shortcut first{.keyCode = 7, .modifiers = Shortcut::shift | Shortcut::command};
    static constexpr Shortcut second{.keyCode = 96, .modifiers = Shortcut::control};
    static constexpr int firstKey = int(Qt::SHIFT) | Qt::META | Qt::Key_X;
    static constexpr int secondKey = int(Qt::CTRL) | Qt::Key_F5;

    static QDBusMessage ask(const QString &path, const QString &interface, const QString &method,
                            const QVariantList &arguments)
    {
        auto call
            = QDBusMessage::createMethodCall("org.kde.kglobalaccel", path, "org.kde." + interface, method);
        call.setArguments(arguments);
        return QDBusConnection::sessionBus().call(call);
    }

    // Another program asks for the key, or gives it up when it is 0.
    static bool anotherTakes(int key)
    {
        const QStringList id{"another", "something", "Another", "Something"};
        ask("/kglobalaccel", "KGlobalAccel", "doRegister", {id});
        const QDBusReply<QList<int>> granted = ask("/kglobalaccel", "KGlobalAccel", "setShortcut",
                                                   {id, QVariant::fromValue(QList<int>{key}), 6U});
        return granted.value() == QList<int>{key};
    }

    static void press()
    {
        ask("/component/vellumora", "kglobalaccel.Component", "invokeShortcut", {"capturar"});
    }

private slots:
    void init()
    {
        QVERIFY(anotherTakes(0));
        keys->onPressed = [this] { ++presses; };
        presses = 0;
    }

    void cleanup() { keys->unregisterShortcut(); }

    void whatAnotherHasIsRefusedAndTheOldOneStays()
    {
        QVERIFY(anotherTakes(secondKey));
        QVERIFY(keys->registerShortcut(first));
        QVERIFY(!keys->registerShortcut(second));
        QVERIFY(!anotherTakes(firstKey));
        press();
        QTRY_COMPARE(presses, 1);
    }

    void theOldOneIsGivenUpForTheNew()
    {
        QVERIFY(keys->registerShortcut(first));
        QVERIFY(keys->registerShortcut(second));
        QVERIFY(!anotherTakes(secondKey));
        QVERIFY(anotherTakes(firstKey));
    }

    void nothingStaysBehind()
    {
        QVERIFY(keys->registerShortcut(first));
        keys.reset();
        QVERIFY(anotherTakes(firstKey));
        keys = makeWaylandHotKeys();
    }
};

QTEST_MAIN(KdeHotKeysTest)
#include "KdeHotKeysTest.moc"
