#include "platform/freedesktop/BundleInstaller.h"

#include "support/AsNobody.h"

#include <QCoroTask>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

// Real archives, most of them made to do harm.
class BundleInstallerTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;

    [[nodiscard]] QString path(const QString &name) const { return folder->filePath(name); }

    // Python's words for the entries of an archive: each has a name and what
    // else there is to say about it.
    void pack(const QString &entries, const QString &form = "gz") const
    {
        const QString program = QString("import io, sys, tarfile as t\n"
                                        "with t.open('%1', 'w:%2') as archive:\n"
                                        "    def add(name, data=b'x', **said):\n"
                                        "        entry = t.TarInfo(name)\n"
                                        "        entry.mode = 0o755\n"
                                        "        for word in said.items(): setattr(entry, *word)\n"
                                        "        entry.size = len(data) if entry.isreg() else 0\n"
                                        "        archive.addfile(entry, io.BytesIO(data))\n"
                                        "    def link(name, to): add(name, type=t.SYMTYPE, linkname=to)\n"
                                        "    out = '%3'\n"
                                        "%4")
                                    .arg(path("image"), form, path("out"), entries);
        QCOMPARE(QProcess::execute("python3", {"-c", program}), 0);
    }

    void write(const QString &name, const QByteArray &text) const
    {
        QFile file(path(name));
        QVERIFY(QDir().mkpath(QFileInfo(file).path()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    [[nodiscard]] std::optional<QString> rehearse(qint64 archive = 0) const
    {
        return QCoro::waitFor(BundleInstaller().rehearse(path("Vellumora.app"), archive));
    }

    [[nodiscard]] std::optional<QString> stage()
    {
        return QCoro::waitFor(BundleInstaller().stage(path("image"), path("mnt"), path("staged")));
    }

    static void row(const char *name, const QString &entries, const QString &reason)
    {
        QTest::newRow(name) << entries << reason;
    }

    static void harmThatTarSees()
    {
        const QString tar = "/usr/bin/tar devolvió 2";
        row("no bundle", "    add('Other.app/bin/vellumora')\n", "/usr/bin/cp devolvió 1");
        row("upwards", "    add('Vellumora.app/../../out/evil')\n", tar);
        row("through a link", "    link('Vellumora.app/d', out)\n    add('Vellumora.app/d/evil')\n", tar);
        row("through a relative link",
            "    link('Vellumora.app/d', '../../out')\n    add('Vellumora.app/d/evil')\n", tar);
        row("through two links",
            "    link('Vellumora.app/d', 'e')\n    link('Vellumora.app/e', out)\n"
            "    add('Vellumora.app/d/evil')\n",
            tar);
        row("a hard link to the outside",
            "    add('Vellumora.app/h', type=t.LNKTYPE, linkname='/etc/passwd')\n", tar);
        row("cut off",
            "    add('Vellumora.app/f', bytes(100000))\n"
            "with open(archive.name, 'r+b') as file: file.truncate(90)\n",
            tar);
        row("no archive", "    pass\nwith open(archive.name, 'wb') as file: file.write(b'<html>')\n", tar);
    }

    static void harmThatIsUnpacked()
    {
        row("the bundle is a link", "    link('Vellumora.app', out)\n", "Vellumora.app: .");
        row("the bundle is a file", "    add('Vellumora.app')\n", "Vellumora.app: .");
        row("a link to the outside", "    link('Vellumora.app/l', '/etc/passwd')\n", "Vellumora.app: l");
        row("a link up and away", "    link('Vellumora.app/l', '..')\n", "Vellumora.app: l");
        row("a link to nothing", "    link('Vellumora.app/l', 'gone')\n", "Vellumora.app: l");
        row("a link to itself", "    link('Vellumora.app/l', 'l')\n", "Vellumora.app: l");
        row("a hard link to a link",
            "    link('Vellumora.app/l', '/etc/passwd')\n"
            "    add('Vellumora.app/h', type=t.LNKTYPE, linkname='Vellumora.app/l')\n",
            "Vellumora.app: ");
        row("a fifo", "    add('Vellumora.app/f', type=t.FIFOTYPE)\n", "Vellumora.app: f");
    }

private slots:
    void whatLiesWherePackagesGoIsThePackageManagers()
    {
        const auto isManaged = [](const char *program) { return BundleInstaller(program).isManaged(); };
        QVERIFY(isManaged("/usr/bin/vellumora"));
        QVERIFY(isManaged("/usr/bin/vellumora (deleted)")); // by an upgrade
        QVERIFY(!isManaged("/usr/local/bin/vellumora"));
        QVERIFY(!isManaged("/usr/share/Vellumora.app/bin/vellumora"));
        QVERIFY(!isManaged("/home/somebody/usr/bin/vellumora"));
    }

    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(folder->path()).mkdir("out"));
    }

    void onlyAProgramInABundleHasOne()
    {
        QCOMPARE(BundleInstaller("/home/ana/Vellumora.app/bin/vellumora").bundle(),
                 "/home/ana/Vellumora.app");
        QCOMPARE(BundleInstaller("/opt/New.app/bin/vellumora").bundle(), "/opt/New.app");
        for (const char *elsewhere :
             {"/usr/bin/vellumora", "/home/ana/Vellumora.app/vellumora", "/a/Vellumora.app/x/vellumora",
              "/a/Vellumora.app.anterior/bin/vellumora", "/bin/vellumora"})
            QVERIFY(!BundleInstaller(elsewhere).bundle());
    }

    void onlyAFolderThatCanBeWrittenLetsItselfBeReplaced()
    {
        const QString bundle = path("Vellumora.app");
        QVERIFY(!BundleInstaller().canReplace(bundle)); // gone
        QVERIFY(QDir().mkdir(bundle));
        QVERIFY(BundleInstaller().canReplace(bundle));
        QVERIFY(!BundleInstaller().canReplace("/proc/self/Vellumora.app"));
        // Everybody may write, but rename only what is his own.
        QCOMPARE(chmod(folder->path().toLocal8Bit(), 01777), 0);
        const AsNobody nobody(path("out"));
        QCOMPARE(BundleInstaller().canReplace(bundle), getuid() == QFileInfo(bundle).ownerId());
    }

    void oneUpdateAtATime()
    {
        BundleInstaller one;
        BundleInstaller other;
        QVERIFY(one.claim(path("Vellumora.app")));
        QVERIFY(!other.claim(path("Vellumora.app")));
        QVERIFY(!one.claim(path("Vellumora.app"))); // and keeps what it has
        QVERIFY(!other.claim(path("Vellumora.app")));
        one.release();
        QVERIFY(other.claim(path("Vellumora.app")));
    }

    void theSwapIsRehearsed()
    {
        QVERIFY(rehearse().value_or("").startsWith(path("Vellumora.app/bin/vellumora-exchange")));
        QVERIFY(QDir().mkpath(path("Vellumora.app/bin")));
        QVERIFY(QFile::copy(VELLUMORA_EXCHANGE, path("Vellumora.app/bin/vellumora-exchange")));
        QCOMPARE(rehearse(), std::nullopt);
        QVERIFY(rehearse(1LL << 60).value_or("").contains("No space left"));
        {
            QCOMPARE(chmod(folder->path().toLocal8Bit(), 01777), 0);
            const AsNobody nobody(path("out"));
            const bool own = getuid() == QFileInfo(path("Vellumora.app")).ownerId();
            QCOMPARE(rehearse() == std::nullopt, own);
        }
        write("Vellumora.app/bin/vellumora-exchange", "#!/bin/sh\n"); // says so and does nothing
        QVERIFY(rehearse());
        QCOMPARE(QDir(folder->path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
                 (QStringList{"out", "Vellumora.app"}));
    }

    void whatDeadUpdatesHaveLeftIsRemoved()
    {
        write("out/mine", "");
        const AsNobody nobody(folder->path());
        write("Vellumora.app/bin/vellumora", "program");
        write("Vellumora.app.anterior/lib/x", "old");
        QFile::setPermissions(path("Vellumora.app.anterior/lib"), QFile::ReadOwner);
        write("Vellumora.app.prueba-1/x", "");
        write("vellumora-act-1/Vellumora.app/x", "");
        QVERIFY(QFile::link(path("out"), path("Vellumora.app.anterior-2")));
        QCoro::waitFor(
            BundleInstaller().sweep(path("Vellumora.app"), {path("vellumora-act-1"), path("gone")}));
        QCOMPARE(QDir(folder->path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
                 (QStringList{"out", "Vellumora.app"}));
        QVERIFY(QFile::exists(path("out/mine")));
    }

    void whatIsUnpackedHasToSayItsVersion_data()
    {
        QTest::addColumn<QByteArray>("program");
        QTest::addColumn<QString>("problem");
        QTest::newRow("right") << QByteArray("#!/bin/sh\necho Vellumora 9.1") << "";
        QTest::newRow("another") << QByteArray("#!/bin/sh\necho Vellumora 9.0")
                                 << u"Vellumora 9.0 ≠ Vellumora 9.1"_qs;
        QTest::newRow("talkative") << QByteArray("#!/bin/sh\nyes") << " devolvió ";
        QTest::newRow("missing libraries") << QByteArray("#!/bin/sh\nexit 127") << " devolvió 127";
        QTest::newRow("another processor") << QByteArray("\x7f"
                                                         "ELF\x02\x01\x01")
                                           << "vellumora: ";
        QTest::newRow("none") << QByteArray() << "vellumora: ";
    }

    void whatIsUnpackedHasToSayItsVersion()
    {
        QFETCH(QByteArray, program);
        QFETCH(QString, problem);
        if (!program.isEmpty())
            write("staged/bin/vellumora", program);
        const auto said = QCoro::waitFor(BundleInstaller().tryOut(path("staged"), "9.1", folder->path()));
        QVERIFY2(said.value_or("").contains(problem) && said.has_value() == !problem.isEmpty(),
                 qPrintable(said.value_or("well")));
    }

    void anImageThatUnpacksToTooMuchIsRefused_data()
    {
        QTest::addColumn<QString>("entries");
        QTest::newRow("one large file") << "    add('Vellumora.app/f', bytes(2000000))\n";
        QTest::newRow("many small ones") << "    for i in range(300): add(f'Vellumora.app/{i}')\n";
    }

    void anImageThatUnpacksToTooMuchIsRefused()
    {
        QFETCH(QString, entries);
        pack(entries, "");
        QVERIFY(QFile::rename(path("image"), path("whole")));
        QCOMPARE(QProcess::execute("mkfifo", {path("image")}), 0);
        QProcess endless; // all but what says that it is over
        endless.setWorkingDirectory(folder->path());
        endless.start("/bin/sh", {"-c", "exec > image; head -c -10240 whole; exec cat"});
        BundleInstaller installer({}, 1'000'000);
        QCOMPARE(QCoro::waitFor(installer.stage(path("image"), path("mnt"), path("staged"))), "> 1000000 B");
        endless.kill();
        endless.waitForFinished();
        QVERIFY(!QFile::exists(path("mnt")));
        QVERIFY(!QFile::exists(path("staged")));
    }

    void aBundleIsCopiedWithItsRightsAndLinks_data()
    {
        QTest::addColumn<QString>("form");
        QTest::newRow("gzip") << "gz";
        QTest::newRow("xz") << "xz";
        QTest::newRow("not packed") << "";
    }

    void aBundleIsCopiedWithItsRightsAndLinks()
    {
        QFETCH(QString, form);
        pack("    add('Vellumora.app/bin/vellumora', b'program')\n"
             "    add('Vellumora.app/lib/a b\\nc', mode=0o644)\n"
             "    link('Vellumora.app/lib/l', '../bin/vellumora')\n",
             form);
        QCOMPARE(stage(), std::nullopt);
        QVERIFY(QFileInfo(path("staged/bin/vellumora")).isExecutable());
        QVERIFY(!QFileInfo(path("staged/lib/a b\nc")).isExecutable());
        QCOMPARE(QFile::symLinkTarget(path("staged/lib/l")), path("staged/bin/vellumora"));
        QVERIFY(!QFile::exists(path("mnt")));
    }

    void harmIsRefused_data()
    {
        QTest::addColumn<QString>("entries");
        QTest::addColumn<QString>("reason");
        harmThatTarSees();
        harmThatIsUnpacked();
    }

    void harmIsRefused()
    {
        QFETCH(QString, entries);
        QFETCH(QString, reason);
        pack(entries);
        const auto problem = stage();
        QVERIFY(problem);
        QVERIFY2(problem->startsWith(reason), qPrintable(*problem));
        QVERIFY(!QFile::exists(path("staged")));
        QVERIFY(!QFile::exists(path("mnt")));
        QVERIFY(QDir(path("out")).isEmpty());
    }

    void absolutePathsAndForeignRightsLoseTheirPower()
    {
        pack("    add(out + '/evil')\n"
             "    add('Vellumora.app/bin/vellumora', mode=0o6755, uid=12345, gid=12345)\n");
        qputenv("TAR_OPTIONS", "--absolute-names --same-permissions");
        QCOMPARE(stage(), std::nullopt);
        qunsetenv("TAR_OPTIONS");
        QVERIFY(QDir(path("out")).isEmpty());
        struct stat found = {};
        QCOMPARE(stat(path("staged/bin/vellumora").toLocal8Bit(), &found), 0);
        QCOMPARE(found.st_mode & 07777, 0755U);
        QCOMPARE(found.st_uid, getuid());
    }

    void aScriptOutlivesItsParentAndSeesNoOtherFolder()
    {
        const QString script
            = "pwd > \"%1\"; cat /dev/fd/8 >> \"%1\"; cut -d ' ' -f 6 /proc/$$/stat >> \"%1\"";
        QCOMPARE(BundleInstaller().start(script.arg(path("said")), "bequest\n"), std::nullopt);
        const auto said = [this] {
            QFile file(path("said"));
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        QTRY_COMPARE(said().count('\n'), 3);
        QVERIFY(said().startsWith("/\nbequest\n"));
        QVERIFY(said().split('\n').at(2).trimmed().toInt() != getsid(0));
    }
};

QTEST_GUILESS_MAIN(BundleInstallerTest)
#include "BundleInstallerTest.moc"
