#include "updater/SwapScript.h"

#include "platform/freedesktop/BundleInstaller.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <unistd.h>

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
        program.write("#!/bin/sh\necho " + version + " >> " + opened().toUtf8() + "\n");
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    [[nodiscard]] QByteArray read(const QString &path) const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] QString opened() const { return folder->filePath("opened"); }

    [[nodiscard]] QByteArray program(const QString &bundle) const
    {
        return read(bundle + "/bin/vellumora").mid(15, 3);
    }

    // Which version a bundle holds; nothing when it is not whole.
    [[nodiscard]] QByteArray version(const QString &bundle) const
    {
        const bool whole = QFile::exists(bundle + "/bin/vellumora-exchange");
        return whole ? program(bundle) : QByteArray();
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

    // The program that comes up outlives the script, and writes its line when it gets to it.
    void runUntilOpened(const QString &text)
    {
        QFile::remove(opened());
        run(text);
        QTRY_COMPARE(read(opened()), program(paths.app) + "\n");
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
        runUntilOpened(script());
        QCOMPARE(version(paths.app), "new");
        QCOMPARE(QDir(home).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList{"Vellumora.app"});
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
        QTRY_COMPARE(read(opened()), "new\n");
    }

    void aFailingCopyLeavesTheOldOne()
    {
        QDir(paths.staged).removeRecursively();
        runUntilOpened(script());
        QCOMPARE(version(paths.app), "old");
        QVERIFY(!QFile::exists(paths.app + ".anterior"));
        QVERIFY(!QFile::exists(paths.work));
    }

    void aFailingExchangeLeavesTheOldOne()
    {
        QVERIFY(QFile::remove(paths.app + "/bin/vellumora-exchange"));
        runUntilOpened(script());
        QCOMPARE(program(paths.app), "old");
        QVERIFY(!QFile::exists(paths.app + ".anterior"));
    }

    void aLeftoverOfAnEarlierUpdateGoes()
    {
        makeBundle(paths.app + ".anterior", "odd");
        runUntilOpened(script());
        QCOMPARE(version(paths.app), "new");
        QVERIFY(!QFile::exists(paths.app + ".anterior"));
    }

    void aLeftoverThatCannotBeRemovedLeavesTheOldOne()
    {
        QDir().mkpath(paths.app + ".anterior/stuck");
        const QString cleaning = "rm -rf \"" + paths.app + ".anterior\"\n";
        QVERIFY(script().contains(cleaning));
        QString text = script();
        runUntilOpened(text.replace(text.indexOf(cleaning), cleaning.size(), "false\n"));
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
        runUntilOpened(script());
        QCOMPARE(version(paths.app), "new");
        QVERIFY(!QFile::exists(paths.app + ".anterior"));
    }

    void killedAmidACopyThereIsTheOldOne()
    {
        // A fifo as part of the bundle holds the copy up. Which other parts are
        // there by then is the file system's choice.
        const QString fifo = paths.staged + "/fifo";
        run("mkfifo \"" + fifo + "\"");
        QProcess shell;
        shell.setChildProcessModifier([] { ::setsid(); });
        shell.start("/bin/sh", {"-c", script().replace("cp -a", "cp -rL --copy-contents")});
        QTRY_VERIFY(QFile::exists(paths.app + ".anterior"));
        QCOMPARE(version(paths.app), "old");
        QCOMPARE(::kill(-pid_t(shell.processId()), SIGKILL), 0); // the copy as well
        QVERIFY(shell.waitForFinished());
        QCOMPARE(version(paths.app), "old");
        QFile::remove(fifo);
        runUntilOpened(script());
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
