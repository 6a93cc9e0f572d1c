#include "platform/freedesktop/AutostartLoginItem.h"

#include "support/TempHome.h"

#include <QTest>

class AutostartLoginItemTest : public QObject {
    Q_OBJECT

    TempHome home;
    AutostartLoginItem item;
    const QString entry = ".config/autostart/vellumora.desktop";

    void replace(const QByteArray &from, const QByteArray &to)
    {
        QByteArray text = home.read(entry);
        QVERIFY(text.contains(from));
        QFile file(home.path(entry));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text.replace(from, to));
    }

private slots:
    void cleanup() { QFile::remove(home.path(entry)); }

    void theFileIsTheState()
    {
        QVERIFY(!item.enabled());
        item.enable();
        QVERIFY(item.enabled());
        const QByteArray program = QCoreApplication::applicationFilePath().toUtf8();
        QVERIFY(home.read(entry).contains("\nExec=\"" + program + "\"\n"));
        item.disable();
        QVERIFY(!item.enabled());
        QVERIFY(!QFile::exists(home.path(entry)));
    }

    void whatOtherToolsDoToTheFileShows()
    {
        item.enable();
        replace("Terminal=false", "Hidden=true");
        QVERIFY(!item.enabled());
    }

    void aFileThatIsNotOursIsLeftAlone()
    {
        item.enable();
        replace("X-Vellumora-Autostart=true", "Comment=mine");
        QVERIFY(!item.enabled());
        item.disable();
        QVERIFY(QFile::exists(home.path(entry)));
    }

    void aFolderThatCannotBeWrittenShowsAsOff()
    {
        QDir(home.path(".config/autostart")).removeRecursively();
        QFile obstacle(home.path(".config/autostart"));
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        item.enable();
        QVERIFY(!item.enabled());
        obstacle.remove();
    }
};

QTEST_GUILESS_MAIN(AutostartLoginItemTest)
#include "AutostartLoginItemTest.moc"
