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

    void aPictureForAScriptIsOneWish()
    {
        const auto all = CommandLine::parse(
            {"--region", "-5,12,300x7", "--capturar", "--salida", "-", "--pantalla", "DP-1"});
        QVERIFY(all.script && all.anyMode && !all.misuse && !all.unknown);
        QCOMPARE(all.script->region, QRect(-5, 12, 300, 7));
        QCOMPARE(all.script->screen, "DP-1");
        QCOMPARE(all.script->output, "-");
        const auto least = CommandLine::parse({"--capturar", "--salida", "a.png"});
        QVERIFY(least.script && !least.script->region && !least.script->screen);
        const auto plain = CommandLine::parse({"--capturar"});
        QVERIFY(plain.capture && !plain.script && !plain.anyMode);
    }

    void aPictureForAScriptIsRefusedInOneSentence_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("sentence");
        const auto row = [](const QStringList &arguments, const QString &sentence) {
            QTest::addRow("%s", qPrintable(arguments.join(' '))) << arguments << sentence;
        };
        row({"--salida", "a.png"}, "go with --capturar");
        for (const char *other : {"--salir", "--ajustes"})
            row({"--capturar", "--salida", "a.png", other}, "and nothing else");
        row({"--capturar", "--salida", "a.png", "--selftest", "out"}, "and nothing else");
        row({"--capturar", "--salida", "a.png", "--demo"}, "and nothing else");
        row({"--capturar", "--region", "0,0,1x1"}, "where does the picture go");
        row({"--capturar", "--pantalla", "todas"}, "where does the picture go");
        row({"--capturar", "--salida"}, "--salida wants a file");
        row({"--capturar", "--salida", ""}, "--salida wants a file");
        row({"--capturar", "--pantalla", "--salida", "a.png"}, "--pantalla wants the name");
        for (const char *bad : {"1,2,3", "0,0,0x5", "0,0,5x-5", "a,0,5x5", "0,0,5x5\n", " 0,0,5x5",
                                "1.5,0,5x5", "0,0,5X5", "0,0,9999999x1", "9999999999,0,1x1"})
            row({"--capturar", "--salida", "a.png", "--region", bad}, "--region wants X,Y,WxH");
    }

    void aPictureForAScriptIsRefusedInOneSentence()
    {
        QFETCH(const QStringList, arguments);
        QFETCH(const QString, sentence);
        const auto line = CommandLine::parse(arguments);
        QVERIFY(!line.script && line.misuse && !line.unknown);
        QVERIFY2(line.misuse->contains(sentence), qPrintable(*line.misuse));
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
