#include "updater/SwapScript.h"

#include "platform/freedesktop/BundleInstaller.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

// The script is run for real on folders of its own. Where it is cut off, the
// shell dies of a signal just before a command of the script would run.
class SwapScriptTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    SwapScript::Paths paths;

    void makeBundle(const QString &path, const QByteArray &version)
    {
        QDir().mkpath(path + "/bin");
        QVERIFY(QFile::copy(VELLUMORA_EXCHANGE, path + "/bin/vellumora-exchange"));
        QFile program(path + "/bin/vellumora");
        QVERIFY(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\necho " + version + " >> " + folder->filePath("opened").toUtf8() + "\n");
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    [[nodiscard]] QByteArray read(const QString &path) const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // Which version a bundle holds; nothing when it is not whole.
    [[nodiscard]] QByteArray version(const QString &bundle) const
    {
        const QByteArray program = read(bundle + "/bin/vellumora");
        const bool whole = QFile::exists(bundle + "/bin/vellumora-exchange");
        return whole ? program.mid(15, 3) : QByteArray();
    }

    [[nodiscard]] QString script(qint64 pid = 0x7fffffff) const
    {
        return SwapScript::text(paths, pid, BundleInstaller().commands(paths.app));
    }

    static void run(const QString &text)
    {
        QProcess shell;
        shell.start("/bin/sh", {"-c", text});
        QVERIFY(shell.waitForFinished());
    }

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        const QString home = folder->filePath("it's a (home) & more; #1 %2");
        paths = {home + "/Vellumora.app", home + "/aside/Vellumora.app", home + "/aside"};
        makeBundle(paths.app, "old");
        makeBundle(paths.staged, "new");
    }

    void theNewOneComesUpAndNothingIsLeft()
    {
        const QString home = QFileInfo(paths.app).path();
        run(script());
        QCOMPARE(version(paths.app), "new");
        QCOMPARE(QDir(home).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList{"Vellumora.app"});
        QTRY_COMPARE(read(folder->filePath("opened")), "new\n");
    }

    void itWaitsForTheProgramToEnd()
    {
        QProcess program;
        program.start("/bin/cat", QStringList());
        QVERIFY(program.waitForStarted());
        QProcess shell;
        shell.start("/bin/sh", {"-c", "set -x\n" + script(program.processId())});
        QByteArray trace;
        const auto waits = [&] {
            shell.waitForReadyRead(10);
            trace += shell.readAllStandardError();
            return trace.contains("sleep");
        };
        QTRY_VERIFY(waits());
        QCOMPARE(version(paths.app), "old");
        program.closeWriteChannel();
        QVERIFY(program.waitForFinished());
        QVERIFY(shell.waitForFinished());
        QCOMPARE(version(paths.app), "new");
    }

    void aFailingCopyLeavesTheOldOne()
    {
        QDir(paths.staged).removeRecursively();
        run(script());
        QCOMPARE(version(paths.app), "old");
        QVERIFY(!QFile::exists(paths.app + ".anterior"));
        QVERIFY(!QFile::exists(paths.work));
        QTRY_COMPARE(read(folder->filePath("opened")), "old\n");
    }

    void aFailingExchangeLeavesTheOldOne()
    {
        QVERIFY(QFile::remove(paths.app + "/bin/vellumora-exchange"));
        run(script());
        QCOMPARE(read(paths.app + "/bin/vellumora").mid(15, 3), "old");
        QVERIFY(!QFile::exists(paths.app + ".anterior"));
    }

    void aLeftoverOfAnEarlierUpdateGoes()
    {
        makeBundle(paths.app + ".anterior", "odd");
        run(script());
        QCOMPARE(version(paths.app), "new");
        QVERIFY(!QFile::exists(paths.app + ".anterior"));
    }

    void aLeftoverThatCannotBeRemovedLeavesTheOldOne()
    {
        QDir().mkpath(paths.app + ".anterior/stuck");
        const QString cleaning = "rm -rf \"" + paths.app + ".anterior\"\n";
        QVERIFY(script().contains(cleaning));
        QString text = script();
        run(text.replace(text.indexOf(cleaning), cleaning.size(), "false\n"));
        QCOMPARE(version(paths.app), "old");
    }

    void killedAnywhereThereIsAWholeBundle_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QByteArray>("left");
        const auto commands = BundleInstaller().commands("<");
        QTest::newRow("waiting") << "while kill" << QByteArray("old");
        QTest::newRow("before the leftover is removed") << "rm -rf \"<.anterior\"\n" << QByteArray("old");
        QTest::newRow("before the copy") << commands.copy << QByteArray("old");
        QTest::newRow("before the exchange") << commands.exchange << QByteArray("old");
        QTest::newRow("before the old one is removed") << "rm -rf \"<.anterior\"" << QByteArray("new");
        QTest::newRow("before the work folder is removed") << "rm -rf \">\"" << QByteArray("new");
        QTest::newRow("before it is opened") << commands.open << QByteArray("new");
    }

    void killedAnywhereThereIsAWholeBundle()
    {
        QFETCH(QString, command);
        QFETCH(QByteArray, left);
        command.replace('<', paths.app).replace('>', paths.work);
        QString text = script();
        const auto at = command.endsWith('"') ? text.lastIndexOf(command) : text.indexOf(command);
        QVERIFY(at >= 0);
        run(text.insert(at, "kill -9 $$; "));
        QCOMPARE(version(paths.app), left);
        QDir(paths.work).removeRecursively();
        makeBundle(paths.staged, "new");
        run(script());
        QCOMPARE(version(paths.app), "new");
        QVERIFY(!QFile::exists(paths.app + ".anterior"));
    }

    void killedAmidACopyThereIsTheOldOne()
    {
        // A fifo as part of the bundle stops the copy until somebody writes to it.
        const QString fifo = paths.staged + "/fifo";
        run("mkfifo \"" + fifo + "\"");
        QProcess shell;
        shell.start("/bin/sh", {"-c", script().replace("cp -a", "cp -rL --copy-contents")});
        QTRY_VERIFY(QFile::exists(paths.app + ".anterior/bin"));
        QCOMPARE(version(paths.app), "old");
        shell.kill();
        QVERIFY(shell.waitForFinished());
        QCOMPARE(version(paths.app), "old");
        run("timeout 5 sh -c ': > \"$1\"' - \"" + fifo + "\""); // lets the copy go
        QFile::remove(fifo);
        run(script());
        QCOMPARE(version(paths.app), "new");
    }

    void onlyPathsThatStayTheyAreBetweenQuotes_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("can");
        QTest::newRow("plain") << "/home/ana/Vellumora.app" << true;
        QTest::newRow("odd but harmless") << u"/h/it's; rm -rf * & (ñ) #!~ %1"_qs << true;
        for (const char *bad : {"\"", "$", "`", "\\", "\n", "\r"})
            QTest::newRow(bad) << QString("/home/a%1b/Vellumora.app").arg(bad) << false;
    }

    void onlyPathsThatStayTheyAreBetweenQuotes()
    {
        QFETCH(QString, path);
        QTEST(SwapScript::canQuote(path), "can");
    }
};

QTEST_GUILESS_MAIN(SwapScriptTest)
#include "SwapScriptTest.moc"
