#include "shapes/Corners.h"
#include "shapes/Cyclic.h"
#include "shapes/Polygon.h"
#include "shapes/ShapeRecognizer.h"
#include "support/Strokes.h"

#include <QTest>

using namespace ShapeRecognizer;

namespace {

Points ring(const Points &outline)
{
    Points points = resample(outline, 65);
    points.pop_back();
    return points;
}

} // namespace

class CornersTest : public QObject {
    Q_OBJECT

private slots:
    void aSquareHasFourCorners()
    {
        const Points square = ring(Strokes::closed({{50, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}}));
        QCOMPARE(findCorners(square), (Corners{8, 24, 40, 56}));
    }

    void roundThingsHaveNone()
    {
        QVERIFY(findCorners(ring(Strokes::ellipse(50, 50))).empty());
        QVERIFY(findCorners({}).empty());
    }

    void aCornerMayLieWhereTheRingBegins()
    {
        QCOMPARE(findCorners(ring(Strokes::closed({{0, 0}, {80, 0}, {80, 80}, {0, 80}}))).front(), 0U);
    }

    void theFirstOfEqualPeaksCounts()
    {
        const std::vector<double> values{1, 5, 5, 1, 0, 0, 0};
        QVERIFY(isPeak(values, 1, 2));
        QVERIFY(!isPeak(values, 2, 2));
        const std::vector<double> acrossTheEnd{5, 1, 0, 0, 0, 1, 5};
        QVERIFY(!isPeak(acrossTheEnd, 0, 2));
        QVERIFY(isPeak(acrossTheEnd, 6, 2));
    }

    void crossingEdgesAreNotSimple()
    {
        QVERIFY(!isSimple(Points{{0, 0}, {10, 10}, {10, 0}, {0, 10}}));
        QVERIFY(!isSimple(Points{{0, 0}, {10, 0}, {0, 10}, {10, 10}}));
        QVERIFY(isSimple(Points{{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
        QVERIFY(isSimple(Points{{0, 0}, {10, 10}, {10, 0}}));
        QVERIFY(isSimple(Points{{0, 0}, {10, 0}, {5, 0}, {5, 10}})); // touching only
    }

    void distanceToAPolygonCountsItsClosingEdge()
    {
        const Points square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
        QCOMPARE(meanDistance(Points{{-1, 5}, {5, 5}}, square), 3.0);
    }
};

QTEST_GUILESS_MAIN(CornersTest)
#include "CornersTest.moc"
