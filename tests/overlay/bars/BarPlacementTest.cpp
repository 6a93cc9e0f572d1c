#include "overlay/bars/BarPlacement.h"

#include "base/Rect.h"

#include <QTest>

using namespace BarPlacement;

class BarPlacementTest : public QObject {
    Q_OBJECT

    const QRectF screen{0, 0, 1280, 800};
    const QSizeF barSize{600, 44};

private slots:
    void theBarKeepsClearOfTheSelection_data()
    {
        QTest::addColumn<QRectF>("selection");
        QTest::addColumn<QPointF>("corner");
        QTest::addColumn<bool>("below");
        QTest::newRow("below") << QRectF(400, 300, 400, 200) << QPointF(300, 244) << true;
        QTest::newRow("just room below") << QRectF(400, 60, 400, 200) << QPointF(300, 4) << true;
        QTest::newRow("above") << QRectF(400, 59, 400, 200) << QPointF(300, 271) << false;
        QTest::newRow("inside") << QRectF(0, 0, 1280, 800) << QPointF(340, 12) << true;
        QTest::newRow("just no room above") << QRectF(400, 0, 400, 741) << QPointF(300, 12) << true;
        QTest::newRow("at the left edge") << QRectF(0, 300, 40, 200) << QPointF(4, 244) << true;
        QTest::newRow("at the right edge") << QRectF(1240, 300, 40, 200) << QPointF(676, 244) << true;
    }

    void theBarKeepsClearOfTheSelection()
    {
        QFETCH(QRectF, selection);
        QFETCH(QPointF, corner);
        const Place place = bar(selection, barSize, screen);
        QCOMPARE(place.frame, QRectF(corner, barSize));
        QTEST(place.below, "below");
    }

    void onATinyScreenTheRightEdgeWins()
    {
        QCOMPARE(minX(bar({10, 100, 50, 50}, barSize, {0, 0, 320, 240}).frame), 320.0 - 600 - 4);
    }

    void thePaletteOpensAwayFromTheSelectionAndFlips()
    {
        const QSizeF size{200, 120};
        const Place under = bar({400, 400, 400, 200}, barSize, screen);
        QCOMPARE(palette(under, 700, size, screen), QRectF({600, minY(under.frame) - 128}, size));
        const Place low = bar({400, 100, 400, 200}, barSize, screen);
        QCOMPARE(minY(palette(low, 700, size, screen)), maxY(low.frame) + 8);
        const Place over = bar({400, 10, 400, 200}, barSize, screen);
        QCOMPARE(minY(palette(over, 700, size, screen)), maxY(over.frame) + 8);
        const Place high = bar({400, 10, 400, 700}, barSize, screen);
        QCOMPARE(minY(palette(high, 700, size, screen)), minY(high.frame) - 128);
        QCOMPARE(minX(palette(under, 1270, size, screen)), 1280.0 - 204);
    }
};

QTEST_GUILESS_MAIN(BarPlacementTest)
#include "BarPlacementTest.moc"
