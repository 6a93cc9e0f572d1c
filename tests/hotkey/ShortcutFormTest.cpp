#include "hotkey/ShortcutForm.h"

#include "base/Defaults.h"
#include "hotkey/Prefs.h"
#include "platform/KeyboardLayout.h"

#include "support/TempHome.h"

#include <QTest>

namespace {

// Types Cyrillic on the X key and nothing elsewhere.
class OneKeyLayout final : public KeyboardLayout {
public:
    std::optional<QString> textOfKey(std::uint32_t evdevCode) const override
    {
        return evdevCode == 45 ? std::optional(QString("ч")) : std::nullopt;
    }
};

} // namespace

class ShortcutFormTest : public QObject {
    Q_OBJECT

    TempHome home;
    OneKeyLayout layout;

private slots:
    void modifiersStandInFixedOrder()
    {
        QCOMPARE(ShortcutForm::display({}, layout), "⇧⌘Ч");
        const auto all = Shortcut::command | Shortcut::option | Shortcut::shift | Shortcut::control;
        QCOMPARE(ShortcutForm::display({96, all | 1}, layout), "⌃⌥⇧⌘F5");
        QCOMPARE(ShortcutForm::display({96, 0}, layout), "F5");
        QCOMPARE(ShortcutForm::inWords(ShortcutForm::display({36, all}, layout)),
                 "Ctrl+Alt+Shift+Super+Return");
    }

    void keysHaveNames()
    {
        const auto name = [this](std::uint32_t keyCode) { return ShortcutForm::keyName(keyCode, layout); };
        QCOMPARE(name(49), "Space"); // in the interface language
        QCOMPARE(name(36), "↩");
        QCOMPARE(name(53), "⎋");
        QCOMPARE(name(48), "⇥");
        QCOMPARE(name(100), "F8");
        QCOMPARE(name(8), "?");     // types nothing
        QCOMPARE(name(70000), "?"); // is no key at all
    }

    void nonsenseInTheStoreIsTheDefault_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::newRow("nothing") << QVariant();
        QTest::newRow("not JSON") << QVariant(QByteArray("{keyCode"));
        QTest::newRow("binary") << QVariant(QByteArray("\x00\xff\x7f", 3));
        QTest::newRow("a list") << QVariant(QByteArray("[7, 768]"));
        QTest::newRow("a missing field") << QVariant(QByteArray(R"({"keyCode": 8})"));
        QTest::newRow("text for a number") << QVariant(QByteArray(R"({"keyCode": "8", "modifiers": 0})"));
        QTest::newRow("a fraction") << QVariant(QByteArray(R"({"keyCode": 7.5, "modifiers": 0})"));
        QTest::newRow("negative") << QVariant(QByteArray(R"({"keyCode": -1, "modifiers": 0})"));
        QTest::newRow("beyond every keyboard")
            << QVariant(QByteArray(R"({"keyCode": 65536, "modifiers": 0})"));
        QTest::newRow("huge") << QVariant(QByteArray(R"({"keyCode": 8, "modifiers": 1e300})"));
        QTest::newRow("another type") << QVariant(QStringList{"a", "b"});
    }

    void nonsenseInTheStoreIsTheDefault()
    {
        QFETCH(QVariant, stored);
        Defaults::setValue(Defaults::shortcutKey, stored);
        QCOMPARE(Prefs::shortcut(), Shortcut{});
    }
};

QTEST_GUILESS_MAIN(ShortcutFormTest)
#include "ShortcutFormTest.moc"
