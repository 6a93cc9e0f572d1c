#include "base/Log.h"

#include "support/TempHome.h"

#include <QTest>

class LogTest : public QObject {
    Q_OBJECT

    TempHome home;

private slots:
    void linesAreDatedAndAppended()
    {
        Log::write("atajo pulsado");
        Log::write("copiado 12x8 png=90 -> OK ✓");
        const auto lines = home.log().split('\n');
        QCOMPARE(lines.size(), 3);
        QVERIFY(lines.at(0).endsWith(" +0000 atajo pulsado"));
        QVERIFY(lines.at(1).endsWith(" +0000 copiado 12x8 png=90 -> OK ✓"));
        QVERIFY(lines.at(2).isEmpty());
    }

    void theDateIsInUniversalTime()
    {
        const QDateTime noon(QDate(2026, 3, 9), QTime(12, 5, 7), Qt::OffsetFromUTC, 2 * 3600);
        QCOMPARE(Log::line(noon, "hola"), "2026-03-09 10:05:07 +0000 hola");
    }

    void aHomeWithoutTheFolderUsesTheOneOfTheSystem()
    {
        QVERIFY(QDir(home.path("Library")).removeRecursively());
        Log::write("nadie lo lee");
        const QString folder = home.path("state/Vellumora");
        Log::keepIn(folder);
        Log::write("uno");
        Log::write("dos");
        QVERIFY(!QDir(home.path("Library")).exists());
        QCOMPARE(home.read("state/Vellumora/Vellumora.log").count('\n'), 2);
        const auto mine = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
        QCOMPARE(QFileInfo(folder).permissions() & ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser),
                 mine);
    }

    void aFolderThatCannotBeMadeLosesTheLinesInSilence()
    {
        QFile file(home.path("file"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        Log::keepIn(home.path("file/Vellumora"));
        Log::write("nadie lo lee");
        QCOMPARE(file.size(), 0);
    }
};

QTEST_GUILESS_MAIN(LogTest)
#include "LogTest.moc"
