#include "overlay/gestures/KeyCommands.h"
#include "marks/Kinds.h"

#include <QTest>

class KeyCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void keysMeanCommands_data()
    {
        QTest::addColumn<QKeyCombination>("key");
        QTest::addColumn<std::optional<KeyCommands::Meaning>>("meaning");
        const auto row
            = [](const char *name, QKeyCombination key, std::optional<KeyCommands::Meaning> meaning) {
                  QTest::newRow(name) << key << meaning;
              };
        row("escape", Qt::Key_Escape, Command::close);
        row("return", Qt::Key_Return, Command::copy);
        row("keypad enter", Qt::KeypadModifier | Qt::Key_Enter, Command::copy);
        row("return with command", Qt::CTRL | Qt::Key_Return, Command::copy);
        row("control as command", Qt::CTRL | Qt::Key_C, Command::copy);
        row("super as command", Qt::META | Qt::Key_S, Command::save);
        row("print", Qt::CTRL | Qt::Key_P, Command::print);
        row("undo", Qt::META | Qt::Key_Z, Command::undo);
        row("all", Qt::CTRL | Qt::Key_A, Command::selectAll);
        row("a tool", Qt::Key_A, Tool::arrow);
        row("a tool with shift", Qt::SHIFT | Qt::Key_X, Tool::pixelate);
        row("the eyedropper", Qt::Key_I, Command::pickColor);
        row("not the last region", Qt::Key_Space, std::nullopt);
        row("no tool has this letter", Qt::Key_C, std::nullopt);
        row("nor with command", Qt::CTRL | Qt::Key_X, std::nullopt);
        row("removal", Qt::ALT | Qt::Key_Delete, Command::removeMark);
        row("no removal without alt", Qt::Key_Delete, std::nullopt);
        row("nor with command and alt", Qt::CTRL | Qt::ALT | Qt::Key_Delete, std::nullopt);
        row("a key that types nothing", Qt::Key_F5, std::nullopt);
    }

    void keysMeanCommands()
    {
        QFETCH(QKeyCombination, key);
        QTEST(KeyCommands::meaning(key, true), "meaning");
    }

    void toolsNeedASelection()
    {
        QVERIFY(!KeyCommands::meaning(Qt::Key_A, false));
        QVERIFY(!KeyCommands::meaning(Qt::Key_Tab, false));
        QVERIFY(KeyCommands::meaning(Qt::Key_Space, false) == KeyCommands::Meaning(Command::lastRegion));
        QVERIFY(KeyCommands::meaning(Qt::CTRL | Qt::Key_A, false)
                == KeyCommands::Meaning(Command::selectAll));
    }

    void theWheelStepsFinelyForThinLines()
    {
        const auto goes = [](const QList<double> &widths, WheelSteps::Step step) {
            for (qsizetype i = 1; i < widths.size(); ++i)
                QCOMPARE(KeyCommands::nextLineWidth(widths[i - 1], step), widths[i]);
        };
        for (const QList<double> &up : {QList<double>{1, 2}, {11, 12, 14, 16}, {35, 36, 36}})
            goes(up, WheelSteps::Step::up);
        for (const QList<double> &down : {QList<double>{16, 14, 12, 11, 10}, {13, 11}, {2, 1, 1}})
            goes(down, WheelSteps::Step::down);
    }

    void touchpadsFeelLikeSteps()
    {
        WheelSteps wheel;
        QCOMPARE(wheel.turned(120), WheelSteps::Step::up);
        QCOMPARE(wheel.turned(-960), WheelSteps::Step::down); // one event, one step
        int steps = 0;
        for (int i = 0; i < 100; ++i)
            steps += wheel.turned(12) == WheelSteps::Step::up;
        QCOMPARE(steps, 10);
        QVERIFY(!wheel.turned(100));
        QVERIFY(!wheel.turned(-100)); // turning back starts anew
        QVERIFY(!wheel.turned(0));
    }
};

QTEST_GUILESS_MAIN(KeyCommandsTest)
#include "KeyCommandsTest.moc"
