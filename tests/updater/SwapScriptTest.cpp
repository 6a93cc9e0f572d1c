#include "updater/SwapScript.h"

#include "platform/freedesktop/BundleInstaller.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// From now on renameat2 with a flag fails in this process and what it starts.
void refuseExchanges(int error)
{
    constexpr auto flags = __u32(offsetof(seccomp_data, args) + 4 * sizeof(__u64));
    std::array<sock_filter, 6> filter{{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, __u32(offsetof(seccomp_data, nr))),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __u32(SYS_renameat2), 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, flags),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, 0, 1, 0),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | __u32(error)),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog program{filter.size(), filter.data()};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program);
}

} // namespace

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
        const QString app = home + "/Vellumora.app";
        paths = {app, app + ".anterior", home + "/act/Vellumora.app", home + "/act"};
        makeBundle(paths.app, "old");
        makeBundle(paths.staged, "new");
    }

    void theNewOneComesUpAndTheOldOneWaitsAside()
    {
        const QString home = QFileInfo(paths.app).path();
        runUntilOpened(script());
        QCOMPARE(version(paths.app), "new");
        QCOMPARE(version(paths.aside), "old");
        QCOMPARE(QDir(home).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
                 (QStringList{"Vellumora.app", "Vellumora.app.anterior"}));
    }

    // The second one comes while the first one copies, and finds the folder
    // locked by it, or by the program that started the first one.
    void aSecondScriptTouchesNothing_data()
    {
        QTest::addColumn<bool>("inherited");
        QTest::newRow("of a program") << true;
        QTest::newRow("of the script itself") << false;
    }

    void aSecondScriptTouchesNothing()
    {
        QFETCH(bool, inherited);
        const QString fifo = folder->filePath("fifo");
        run("mkfifo \"" + fifo + "\"");
        BundleInstaller installer;
        if (inherited)
            QVERIFY(installer.claim(paths.app));
        const QString held = script().replace("cp -a", "cat \"" + fifo + "\" && cp -a");
        QCOMPARE(installer.start(held, {}), std::nullopt);
        installer.release();
        QFile end(fifo);
        QVERIFY(end.open(QIODevice::WriteOnly)); // returns when the copy is about to begin
        run(script());
        QCOMPARE(version(paths.app), "old");
        QVERIFY(!QFile::exists(paths.aside));
        QVERIFY(!QFile::exists(opened()));
        QVERIFY(!BundleInstaller().claim(paths.app));
        end.close();
        QTRY_COMPARE(read(opened()), "new\n");
        // What has been opened does not hold the lock any more.
        QVERIFY(BundleInstaller().claim(paths.app));
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
        QVERIFY(!QFile::exists(paths.aside));
        QVERIFY(!QFile::exists(paths.work));
    }

    void aFailingExchangeLeavesTheOldOne()
    {
        QVERIFY(QFile::remove(paths.app + "/bin/vellumora-exchange"));
        runUntilOpened(script());
        QCOMPARE(program(paths.app), "old");
        QVERIFY(!QFile::exists(paths.aside));
    }

    void aLeftoverOfAnEarlierUpdateGoes()
    {
        makeBundle(paths.aside, "odd");
        runUntilOpened(script());
        QCOMPARE(version(paths.app), "new");
        QCOMPARE(version(paths.aside), "old");
    }

    void theNameAsideIsFree()
    {
        QCOMPARE(SwapScript::aside(paths.app), paths.app + ".anterior");
        QDir().mkpath(paths.app + ".anterior");
        QVERIFY(QFile::link("/nowhere", paths.app + ".anterior-2"));
        QCOMPARE(SwapScript::aside(paths.app), paths.app + ".anterior-3");
    }

    void aLeftoverThatCannotBeRemovedLeavesTheOldOne()
    {
        QDir().mkpath(paths.aside + "/stuck");
        const QString cleaning = "rm -rf \"" + paths.aside + "\"\n";
        QVERIFY(script().contains(cleaning));
        QString text = script();
        runUntilOpened(text.replace(text.indexOf(cleaning), cleaning.size(), "false\n"));
        QCOMPARE(version(paths.app), "old");
    }

    // The kernel itself answers like a file system that cannot.
    void withoutExchangesThereAreRenames_data()
    {
        QTest::addColumn<int>("error");
        QTest::addColumn<QByteArray>("left");
        QTest::newRow("other devices") << EXDEV << QByteArray("new");
        QTest::newRow("not known") << EINVAL << QByteArray("new");
        QTest::newRow("forbidden") << EACCES << QByteArray("old");
    }

    void withoutExchangesThereAreRenames()
    {
        QFETCH(int, error);
        QFETCH(QByteArray, left);
        QProcess shell;
        shell.setChildProcessModifier([error] { refuseExchanges(error); });
        shell.start("/bin/sh", {"-c", script()});
        QVERIFY(shell.waitForFinished());
        QTRY_COMPARE(read(opened()), left + "\n");
        QCOMPARE(version(paths.app), left);
        QCOMPARE(version(paths.aside), left == "new" ? "old" : "");
    }

    void killedAnywhereThereIsAWholeBundle_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QByteArray>("left");
        const auto commands = BundleInstaller().commands("@");
        QTest::newRow("waiting") << "while kill" << QByteArray("old");
        QTest::newRow("before the leftover is removed") << "rm -rf \"@.anterior\"\n" << QByteArray("old");
        QTest::newRow("before the copy") << commands.copy << QByteArray("old");
        QTest::newRow("before the exchange") << commands.exchange << QByteArray("old");
        QTest::newRow("after the exchange") << "|| rm" << QByteArray("new");
        QTest::newRow("before the work folder is removed") << "rm -rf \"^\"" << QByteArray("new");
        QTest::newRow("before it is opened") << commands.open << QByteArray("new");
    }

    void killedAnywhereThereIsAWholeBundle()
    {
        QFETCH(QString, command);
        QFETCH(QByteArray, left);
        command.replace('@', paths.app).replace('^', paths.work);
        QString text = script();
        const auto at = text.indexOf(command);
        QVERIFY(at >= 0);
        run(command.startsWith("||") ? text.insert(at, "&& kill -9 $$ ") : text.insert(at, "kill -9 $$; "));
        QCOMPARE(version(paths.app), left);
        QDir(paths.work).removeRecursively();
        makeBundle(paths.staged, "new");
        runUntilOpened(script());
        QCOMPARE(version(paths.app), "new");
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
        QTRY_VERIFY(QFile::exists(paths.aside));
        QCOMPARE(version(paths.app), "old");
        QCOMPARE(::kill(-pid_t(shell.processId()), SIGKILL), 0); // the copy as well
        QVERIFY(shell.waitForFinished());
        QCOMPARE(version(paths.app), "old");
        // The copy dies in its own time, and holds the folder until it has.
        QTRY_VERIFY(BundleInstaller().claim(paths.app));
        QFile::remove(fifo);
        runUntilOpened(script());
        QCOMPARE(version(paths.app), "new");
    }

    void onlyPathsThatStayTheyAreBetweenQuotes()
    {
        for (const QString &path : {u"/home/ana/Vellumora.app"_qs, u"/h/it's; rm -rf * & (ñ) #!~ %1"_qs})
            QCOMPARE(SwapScript::unquotable(path), std::nullopt);
        for (const char bad : {'"', '$', '`', '\\', '\n', '\r'})
            QCOMPARE(SwapScript::unquotable(QString("/home/a%1b/Vellumora.app").arg(QChar(bad))), QChar(bad));
    }
};

QTEST_GUILESS_MAIN(SwapScriptTest)
#include "SwapScriptTest.moc"
