#include "platform/freedesktop/AutostartLoginItem.h"

#include "platform/ProgramId.h"
#include "platform/freedesktop/DesktopEntry.h"

#include "support/TempHome.h"

#include <QTest>

class AutostartLoginItemTest : public QObject {
    Q_OBJECT

    TempHome home;
    AutostartLoginItem item;
    const QString entry = ".config/autostart/" + programId() + ".desktop";
    const QByteArray program = QCoreApplication::applicationFilePath().toUtf8();

    void put(const QByteArray &text)
    {
        QDir(home.path()).mkpath(".config/autostart");
        QFile file(home.path(entry));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    [[nodiscard]] QByteArray starting(const QByteArray &exec, const QByteArray &more = {}) const
    {
        return "[Desktop Entry]\nType=Application\nExec=" + exec + "\n" + more
               + "[Desktop Action x]\nHidden=true\nExec=/bin/false\n";
    }

private slots:
    void init() { qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME"); }
    void cleanup() { QFile::remove(home.path(entry)); }

    void itIsOnWhenTheDesktopStartsThisVeryProgram_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("on");
        const QByteArray link = home.path("a \"strange\" $name").toUtf8();
        QFile::link(program, link);
        const QByteArray &p = program;
        QTest::newRow("plain") << starting(p + " %U") << true;
        QTest::newRow("by another name")
            << starting("\"" + home.path("a").toUtf8() + " \\\\\"strange\\\\\" \\\\$name\"") << true;
        QTest::newRow("in single quotes") << starting("'" + link + "' --x") << true;
        QTest::newRow("through env") << starting("env -u A LANG=C \"B=c d\" " + p) << true;
        QTest::newRow("env starts another") << starting("env A=" + p + " /bin/true") << false;
        QTest::newRow("as an argument only") << starting("/bin/true " + p) << false;
        QTest::newRow("an open quote") << starting("\"" + p) << false;
        QTest::newRow("from another folder") << starting("/opt/Vellumora.app/bin/vellumora") << false;
        QTest::newRow("hidden") << starting(p, "Hidden = true\n") << false;
        QTest::newRow("switched off") << starting(p, "X-GNOME-Autostart-enabled=false\n") << false;
        QTest::newRow("switched on") << starting(p, "X-GNOME-Autostart-enabled=true\nHidden=false\n") << true;
        QTest::newRow("needs what is there") << starting(p, "TryExec=sh\n") << true;
        QTest::newRow("needs what is missing") << starting(p, "TryExec=/opt/none\n") << false;
        QTest::newRow("of this desktop") << starting(p, "OnlyShowIn=KDE;GNOME;\n") << true;
        QTest::newRow("of another") << starting(p, "OnlyShowIn=KDE;\n") << false;
        QTest::newRow("of all others") << starting(p, "NotShowIn=GNOME;\n") << false;
    }

    void itIsOnWhenTheDesktopStartsThisVeryProgram()
    {
        QFETCH(QByteArray, text);
        put(text);
        QTEST(item.enabled(), "on");
    }

    void aMovedBundleIsOffAndCanBeSwitchedOnAgain()
    {
        item.enable();
        put(home.read(entry).replace(program, "/opt/Vellumora.app/bin/vellumora"));
        QVERIFY(!item.enabled());
        item.enable();
        QVERIFY(item.enabled());
    }

    void anEntryThatSomebodyElseMadeForUsKeepsWhatItSays()
    {
        put(starting(program, "Comment=mine\nX-GNOME-Autostart-enabled=false\n"));
        item.enable();
        QVERIFY(item.enabled());
        item.disable();
        QVERIFY(!item.enabled());
        QVERIFY(home.read(entry).contains("\nComment=mine\n"));
        QVERIFY(home.read(entry).contains("\nHidden=true\n"));
    }

    void aForeignFileIsLeftAlone()
    {
        const QByteArray text = starting("/bin/true", "Hidden=true\n");
        put(text);
        item.enable();
        item.disable();
        QVERIFY(!item.canBeEnabled());
        QCOMPARE(home.read(entry), text);
    }

    void tryingMakesNoFolder()
    {
        QDir(home.path(".config")).removeRecursively();
        QVERIFY(item.canBeEnabled());
        QVERIFY(!QFile::exists(home.path(".config")));
    }
};

QTEST_GUILESS_MAIN(AutostartLoginItemTest)
#include "AutostartLoginItemTest.moc"
