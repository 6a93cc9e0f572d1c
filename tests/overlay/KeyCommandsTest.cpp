#include "overlay/KeyCommands.h"

#include <QTest>

class KeyCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void keysMeanCommands_data()
    {
        QTest::addColumn<QKeyCombination>("key");
        QTest::addColumn<std::optional<Command>>("command");
        QTest::newRow("escape") << QKeyCombination(Qt::Key_Escape) << std::optional(Command::close);
        QTest::newRow("return") << QKeyCombination(Qt::Key_Return) << std::optional(Command::copy);
        QTest::newRow("keypad enter") << (Qt::KeypadModifier | Qt::Key_Enter) << std::optional(Command::copy);
        QTest::newRow("return with command") << (Qt::CTRL | Qt::Key_Return) << std::optional(Command::copy);
        QTest::newRow("control as command") << (Qt::CTRL | Qt::Key_C) << std::optional(Command::copy);
        QTest::newRow("super as command") << (Qt::META | Qt::Key_S) << std::optional(Command::save);
        QTest::newRow("print") << (Qt::CTRL | Qt::Key_P) << std::optional(Command::print);
        QTest::newRow("all") << (Qt::CTRL | Qt::Key_A) << std::optional(Command::selectAll);
        QTest::newRow("a letter alone") << QKeyCombination(Qt::Key_C) << std::optional<Command>();
        QTest::newRow("another modifier") << (Qt::ALT | Qt::Key_C) << std::optional<Command>();
        QTest::newRow("another letter") << (Qt::CTRL | Qt::Key_X) << std::optional<Command>();
    }

    void keysMeanCommands()
    {
        QFETCH(QKeyCombination, key);
        QTEST(KeyCommands::meaning(key), "command");
    }

    void aKeyboardWithoutLatinLettersGoesByPosition()
    {
        constexpr auto cyrillicS = static_cast<Qt::Key>(0x0421);
        constexpr std::uint32_t kernelC = 46;
        QCOMPARE(KeyCommands::latinKey(cyrillicS, kernelC), Qt::Key_C);
        QCOMPARE(KeyCommands::latinKey(cyrillicS, 0), cyrillicS);
        QCOMPARE(KeyCommands::latinKey(Qt::Key_Q, kernelC), Qt::Key_Q);
        QCOMPARE(KeyCommands::latinKey(Qt::Key_Return, kernelC), Qt::Key_Return);
    }
};

QTEST_GUILESS_MAIN(KeyCommandsTest)
#include "KeyCommandsTest.moc"
