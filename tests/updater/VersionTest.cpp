#include "updater/Version.h"

#include "updater/Updater.h"

#include <QTest>

class VersionTest : public QObject {
    Q_OBJECT

private slots:
    void newerThan_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<bool>("newer");
        const auto row = [](const char *name, const QString &a, const QString &b, bool newer) {
            QTest::newRow(name) << a << b << newer;
        };
        row("numbers, not letters", "1.10", "1.9", true);
        row("the first difference decides", "2", "1.99.99", true);
        row("a missing number is 0", "1.0", "1", false);
        row("and so it is on the other side", "1", "1.0.0", false);
        row("a longer one", "1.2.0.1", "1.2", true);
        row("the same", "1.4.2", "1.4.2", false);
        row("a piece that is no number is 0", "1.4beta", "1.0", false);
        row("but what follows counts", "1.x.1", "1.0.0", true);
        row("empty pieces do not count", "1..2", "1.1", true);
        row("nothing at all", "", "0", false);
        row("against nothing", "0.0.1", "...", true);
        row("blanks make no number", "1. 9", "1.0", false);
        row("foreign digits make no number", u"1.٩"_qs, "1.0", false);
        row("too large to be read is 0", "1.99999999999999999999", "1.0", false);
        row("the largest", "9223372036854775807", "9223372036854775806", true);
        row("below zero", "1.-1", "1", false);
    }

    void newerThan()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QTEST(Updater::isNewer(a, b), "newer");
        QVERIFY(!(Version::isNewer(a, b) && Version::isNewer(b, a)));
    }
};

QTEST_GUILESS_MAIN(VersionTest)
#include "VersionTest.moc"
