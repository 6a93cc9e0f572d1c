#include "platform/freedesktop/BundleInstaller.h"

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

    [[nodiscard]] std::optional<QString> stage()
    {
        return QCoro::waitFor(BundleInstaller().stage(path("image"), path("mnt"), path("staged")));
    }

    static void harmThatTarSees()
    {
        const QString tar = "/usr/bin/tar devolvió 2";
        QTest::newRow("no bundle") << "    add('Other.app/bin/vellumora')\n"
                                   << "/usr/bin/cp devolvió 1";
        QTest::newRow("upwards") << "    add('Vellumora.app/../../out/evil')\n" << tar;
        QTest::newRow("through a link")
            << "    link('Vellumora.app/d', out)\n    add('Vellumora.app/d/evil')\n"
            << tar;
        QTest::newRow("through a relative link")
            << "    link('Vellumora.app/d', '../../out')\n    add('Vellumora.app/d/evil')\n"
            << tar;
        QTest::newRow("through two links")
            << "    link('Vellumora.app/d', 'e')\n    link('Vellumora.app/e', out)\n"
               "    add('Vellumora.app/d/evil')\n"
            << tar;
        QTest::newRow("a hard link to the outside")
            << "    add('Vellumora.app/h', type=t.LNKTYPE, linkname='/etc/passwd')\n"
            << tar;
        QTest::newRow("cut off") << "    add('Vellumora.app/f', bytes(100000))\n"
                                    "with open(archive.name, 'r+b') as file: file.truncate(90)\n"
                                 << tar;
        QTest::newRow("no archive")
            << "    pass\nwith open(archive.name, 'wb') as file: file.write(b'<html>')\n"
            << tar;
    }

    static void harmThatIsUnpacked()
    {
        QTest::newRow("the bundle is a link") << "    link('Vellumora.app', out)\n"
                                              << "Vellumora.app: .";
        QTest::newRow("the bundle is a file") << "    add('Vellumora.app')\n"
                                              << "Vellumora.app: .";
        QTest::newRow("a link to the outside") << "    link('Vellumora.app/l', '/etc/passwd')\n"
                                               << "Vellumora.app: l";
        QTest::newRow("a link up and away") << "    link('Vellumora.app/l', '..')\n"
                                            << "Vellumora.app: l";
        QTest::newRow("a link to nothing") << "    link('Vellumora.app/l', 'gone')\n"
                                           << "Vellumora.app: l";
        QTest::newRow("a link to itself") << "    link('Vellumora.app/l', 'l')\n"
                                          << "Vellumora.app: l";
        QTest::newRow("a hard link to a link")
            << "    link('Vellumora.app/l', '/etc/passwd')\n"
               "    add('Vellumora.app/h', type=t.LNKTYPE, linkname='Vellumora.app/l')\n"
            << "Vellumora.app: ";
        QTest::newRow("a fifo") << "    add('Vellumora.app/f', type=t.FIFOTYPE)\n"
                                << "Vellumora.app: f";
    }

private slots:
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
        QVERIFY(BundleInstaller().canReplace(path("Vellumora.app")));
        QVERIFY(!BundleInstaller().canReplace(path("gone/Vellumora.app")));
        QVERIFY(!BundleInstaller().canReplace("/proc/self/Vellumora.app"));
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
        QCOMPARE(BundleInstaller().start("pwd > \"" + path("said") + "\""), std::nullopt);
        QFile said(path("said"));
        QTRY_VERIFY(said.exists() && said.size() > 0);
        QVERIFY(said.open(QIODevice::ReadOnly));
        QCOMPARE(said.readAll(), "/\n");
    }
};

QTEST_GUILESS_MAIN(BundleInstallerTest)
#include "BundleInstallerTest.moc"
