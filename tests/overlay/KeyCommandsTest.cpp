#include "overlay/KeyCommands.h"

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
        row("no tool has this letter", Qt::Key_C, std::nullopt);
        row("nor with command", Qt::CTRL | Qt::Key_X, std::nullopt);
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
        QVERIFY(KeyCommands::meaning(Qt::CTRL | Qt::Key_A, false)
                == KeyCommands::Meaning(Command::selectAll));
    }

    void everyToolHasItsOwnLetter()
    {
        for (const Tool tool : allTools)
            QCOMPARE(toolForLetter(QChar(keyLetter(tool)).toLower()), tool);
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
