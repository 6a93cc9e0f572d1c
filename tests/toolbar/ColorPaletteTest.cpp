#include "toolbar/ColorPalette.h"
#include "toolbar/PaletteGeometry.h"
#include "toolbar/RecentColors.h"
#include "toolbar/Theme.h"

#include "base/Defaults.h"
#include "support/TempHome.h"
#include "toolbar/ColorHex.h"

#include <QTest>

class ColorPaletteTest : public QObject {
    Q_OBJECT

    TempHome home;

    static QStringList recents()
    {
        QStringList texts;
        for (const QColor &color : RecentColors::colors())
            texts.append(hex(color));
        return texts;
    }

private slots:
    void init() { Defaults::setValue(u"coloresRecientes", QVariant()); }

    void aClickHitsWhatIsThere_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<QString>("hit");
        QTest::newRow("the first dot") << QPointF(17, 17) << "fixed 0";
        QTest::newRow("its slack") << QPointF(6, 6) << "fixed 0";
        QTest::newRow("beside it") << QPointF(5.9, 17) << "nothing";
        QTest::newRow("the last dot") << QPointF(105, 39) << "fixed 9";
        QTest::newRow("the eyedropper's row") << QPointF(60, 65) << "eyedropper";
        QTest::newRow("a recent colour") << QPointF(39, 91) << "recent 1";
        QTest::newRow("an empty slot") << QPointF(61, 91) << "eyedropper";
        QTest::newRow("below everything") << QPointF(60, 130) << "eyedropper";
        QTest::newRow("between the sections") << QPointF(60, 78) << "nothing";
    }

    void aClickHitsWhatIsThere()
    {
        QFETCH(QPointF, point);
        RecentColors::add(Qt::green);
        RecentColors::add(Qt::blue);
        QString hit = "nothing";
        ColorPalette palette;
        palette.onEyedropper = [&] { hit = "eyedropper"; };
        palette.onPick = [&](const QColor &color) {
            const auto fixed = std::ranges::find(Theme::drawColors, color);
            hit = fixed == Theme::drawColors.end()
                      ? QString("recent %1").arg(RecentColors::colors().indexOf(color))
                      : QString("fixed %1").arg(fixed - Theme::drawColors.begin());
        };
        QMouseEvent press(QEvent::MouseButtonPress, point, point, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&palette, &press);
        QTEST(hit, "hit");
    }

    void theNewestColourComesFirstAndTheEleventhGoes()
    {
        for (int i = 0; i < 10; ++i)
            RecentColors::add(QColor(i, 0, 0));
        RecentColors::add(QColor(3, 0, 0)); // moves to the front
        QCOMPARE(recents().size(), 10);
        QCOMPARE(recents().mid(0, 2), (QStringList{"#030000", "#090000"}));
        QCOMPARE(recents().count("#030000"), 1);
        RecentColors::add(Qt::white);
        QCOMPARE(recents().size(), 10);
        QVERIFY(!recents().contains("#000000")); // the oldest
    }

    void whatIsNoColourIsPassedOverAndKept()
    {
        Defaults::setValue(u"coloresRecientes",
                           QStringList{"#00FF00", "red", "#12345", "#GGGGGG", "", "#-12345", "#0000FF"});
        QCOMPARE(recents(), (QStringList{"#00FF00", "#0000FF"}));
        RecentColors::add(Qt::red);
        QCOMPARE(Defaults::value(u"coloresRecientes").toStringList().mid(0, 3),
                 (QStringList{"#FF0000", "#00FF00", "red"}));
    }

    void aStoreOfAnyTypeIsAnEmptyList_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::newRow("a number") << QVariant(12);
        QTest::newRow("bytes") << QVariant(QByteArray("\x00\xff", 2));
        QTest::newRow("a list of lists") << QVariant(QVariantList{QVariantList{1, 2}, 3});
        QTest::newRow("a map") << QVariant(QVariantMap{{"a", 1}});
    }

    void aStoreOfAnyTypeIsAnEmptyList()
    {
        QFETCH(QVariant, stored);
        Defaults::setValue(u"coloresRecientes", stored);
        QVERIFY(recents().isEmpty());
        RecentColors::add(Qt::red);
        QCOMPARE(recents(), QStringList{"#FF0000"});
    }
};

QTEST_MAIN(ColorPaletteTest)
#include "ColorPaletteTest.moc"
