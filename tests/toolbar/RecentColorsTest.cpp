#include "toolbar/RecentColors.h"
#include "base/Defaults.h"
#include "support/TempHome.h"
#include "toolbar/ColorHex.h"

#include <QTest>

class RecentColorsTest : public QObject {
    Q_OBJECT

    TempHome home;

    static void store(const QVariant &value) { Defaults::setValue(Defaults::recentColorsKey, value); }
    static QStringList stored() { return Defaults::value(Defaults::recentColorsKey).toStringList(); }
    static QStringList read()
    {
        QStringList texts;
        for (const QColor &color : RecentColors::colors())
            texts.append(hex(color));
        return texts;
    }

private slots:
    void init() { store({}); }

    void theNewestComesFirst()
    {
        QVERIFY(RecentColors::colors().isEmpty());
        RecentColors::add(Qt::red);
        QCOMPARE(read(), QStringList{"#FF0000"}); // a list of one is a special case of the store
        RecentColors::add(QColor(0, 0, 255, 20));
        QCOMPARE(read(), (QStringList{"#0000FF", "#FF0000"}));
        QCOMPARE(RecentColors::colors().front().alpha(), 255);
    }

    void aColourThatIsThereMovesToTheFront()
    {
        store(QStringList{"#000001", "#000002", "#000003"});
        RecentColors::add(QColor(0, 0, 3));
        QCOMPARE(stored(), (QStringList{"#000003", "#000001", "#000002"}));
    }

    void theEleventhPushesTheOldestOut()
    {
        for (int i = 0; i < 11; ++i)
            RecentColors::add(QColor(0, 0, i));
        QCOMPARE(stored().size(), 10);
        QCOMPARE(read().first(), "#00000A");
        QCOMPARE(read().last(), "#000001");
    }

    void whatIsNoColourIsPassedOverAndKept()
    {
        const QStringList edited{"FF0000",  "#FFF",     "#GG0000", "#+12345", "#0x1234",
                                 "#12 456", "#FF00001", "",        "red",     "#ff3b30"};
        store(edited);
        QCOMPARE(read(), QStringList{"#FF3B30"});
        RecentColors::add(Qt::white);
        QCOMPARE(stored(), QStringList{"#FFFFFF"} + edited.first(9));
    }

    void anyTypeOfValueIsSurvived()
    {
        const QVariantList mixed{1, QByteArray("x"), QVariantMap()};
        for (const QVariant &value : {QVariant(7), QVariant(QVariantMap{{"a", 1}}), QVariant(mixed),
                                      QVariant(QByteArray("\0\xff", 2)), QVariant(QColor(Qt::red))}) {
            store(value);
            (void)RecentColors::colors();
            RecentColors::add(Qt::green);
            QCOMPARE(read().first(), "#00FF00");
        }
    }
};

QTEST_GUILESS_MAIN(RecentColorsTest)
#include "RecentColorsTest.moc"
