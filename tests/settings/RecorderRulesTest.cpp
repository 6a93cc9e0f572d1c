#include "settings/RecorderRules.h"

#include "platform/Shortcut.h"

#include <QKeyEvent>
#include <QTest>

using RecorderRules::Verdict;
using Code = std::optional<std::uint32_t>;

class RecorderRulesTest : public QObject {
    Q_OBJECT

private slots:
    void whatAPressMeans_data()
    {
        QTest::addColumn<Code>("key");
        QTest::addColumn<quint64>("modifiers");
        QTest::addColumn<Verdict>("verdict");
        const auto row = [](const char *name, Code key, quint64 modifiers, Verdict verdict) {
            QTest::newRow(name) << key << modifiers << verdict;
        };
        row("X", 7, 0, Verdict::swallow);
        row("Shift X", 7, Shortcut::shift, Verdict::accept);
        row("X with a lock key on", 7, 0x10000, Verdict::swallow);
        row("F5, the first that may be alone", 96, 0, Verdict::accept);
        row("F1, the last that may be alone", 122, 0, Verdict::accept);
        row("keypad comma, just before them", 95, 0, Verdict::swallow);
        row("left arrow, just after them", 123, 0, Verdict::swallow);
        row("Ctrl left arrow", 123, Shortcut::control, Verdict::accept);
        row("Ctrl Alt Escape", 53, Shortcut::control | Shortcut::option, Verdict::cancel);
        row("Super with Shift held", 55, Shortcut::shift, Verdict::swallow);
        row("a key without code", {}, Shortcut::control, Verdict::swallow);
    }

    void whatAPressMeans()
    {
        QFETCH(Code, key);
        QFETCH(quint64, modifiers);
        QTEST(RecorderRules::verdict(key, modifiers), "verdict");
    }

    void thePositionDecides_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("scanCode");
        QTest::addColumn<Code>("code");
        QTest::newRow("X of a Russian layout") << 0x427 << 53 << Code(7);
        QTest::newRow("1 with Shift") << int(Qt::Key_Exclam) << 10 << Code(18);
        QTest::newRow("Escape in the place of Caps Lock") << int(Qt::Key_Escape) << 66 << Code(53);
        QTest::newRow("the menu key made a Super") << int(Qt::Key_Super_R) << 135 << Code();
        QTest::newRow("a key of no position") << int(Qt::Key_X) << 0 << Code();
    }

    void thePositionDecides()
    {
        QFETCH(int, key);
        QFETCH(int, scanCode);
        const QKeyEvent press(QEvent::KeyPress, key, Qt::ControlModifier, quint32(scanCode), 0, 0);
        QTEST(RecorderRules::keyCodeOf(press), "code");
    }
};

QTEST_GUILESS_MAIN(RecorderRulesTest)
#include "RecorderRulesTest.moc"
