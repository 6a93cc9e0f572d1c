#include "app/CommandLine.h"

#include <QTest>

class CommandLineTest : public QObject {
    Q_OBJECT

private slots:
    void plainFlagsAreSeen()
    {
        const auto line = CommandLine::parse({"--capturar", "--ajustes", "--salir", "-h", "--version"});
        QVERIFY(line.capture && line.settings && line.quit && line.help && line.version && !line.anyMode
                && !line.unknown);
    }

    void modesTakeTheirArguments()
    {
        const auto demo = CommandLine::parse({"--demo", "a.png", "out"});
        QVERIFY(demo.anyMode && demo.demo && !demo.unknown);
        QCOMPARE(demo.demo->picture, "a.png");
        QCOMPARE(demo.demo->folder, "out");
        QCOMPARE(CommandLine::parse({"--prueba-halo", "a.png", "out"}).haloTest->folder, "out");
        QCOMPARE(CommandLine::parse({"--selftest", "out"}).selfTest, "out");
    }

    void aModeWithoutItsArgumentsIsIgnoredButStillAMode()
    {
        for (const QStringList &arguments : {QStringList{"--demo"}, QStringList{"--demo", "a.png"},
                                             QStringList{"--prueba-halo", "x"}, QStringList{"--selftest"}}) {
            const auto line = CommandLine::parse(arguments);
            QVERIFY(line.anyMode && !line.demo && !line.haloTest && !line.selfTest && !line.unknown);
        }
    }

    void anythingElseIsUnknown()
    {
        QCOMPARE(CommandLine::parse({"--capturar", "--now", "x"}).unknown, "--now");
        QCOMPARE(CommandLine::parse({"picture.png"}).unknown, "picture.png");
        QCOMPARE(CommandLine::parse({""}).unknown, "");
    }
};

QTEST_GUILESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
