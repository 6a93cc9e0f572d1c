#include "shapes/CircleArc.h"
#include "shapes/EllipseFit.h"
#include "shapes/StrokeGeometry.h"
#include "support/Strokes.h"

#include <QTest>

using namespace ShapeRecognizer;

namespace {

Points spaced(const Points &points) { return resample(points, 64); }

Points ring(const Points &outline)
{
    Points points = resample(outline, 65);
    points.pop_back();
    return points;
}

Points arcDrawn(double sweep) { return Strokes::ellipse(80, 80, 0.4, Strokes::radians(sweep)); }

} // namespace

class CurvesTest : public QObject {
    Q_OBJECT

private slots:
    void nearlyRoundEllipsesAreCircles()
    {
        const EllipseFit round = ellipseFit(ring(Strokes::ellipse(100, 88))).value();
        QCOMPARE(QString::fromStdString(round.result.name), "circulo");
        QVERIFY(std::abs(bounds(round.result.points).width - 188) < 0.5);
        QVERIFY(std::abs(bounds(round.result.points).height - 188) < 0.5);
        const EllipseFit oval = ellipseFit(ring(Strokes::ellipse(100, 85))).value();
        QCOMPARE(QString::fromStdString(oval.result.name), "elipse");
        QCOMPARE(oval.result.points.size(), 73U);
        QCOMPARE(oval.result.points.front(), oval.result.points.back());
    }

    void nearlyUprightEllipsesAreUpright()
    {
        for (const auto &[tilt, height] : {std::pair(6.0, 100.0), std::pair(96.0, 200.0)}) {
            const Points drawn = Strokes::turned(Strokes::ellipse(100, 50), Strokes::radians(tilt));
            QVERIFY(std::abs(bounds(ellipseFit(ring(drawn)).value().result.points).height - height) < 1);
        }
        const Points tilted = Strokes::turned(Strokes::ellipse(100, 50), Strokes::radians(10));
        QVERIFY(bounds(ellipseFit(ring(tilted)).value().result.points).height > 103);
    }

    void ellipsesHaveASmallestSize()
    {
        QVERIFY(!ellipseFit(ring(Strokes::ellipse(3, 3))));
        QVERIFY(!ellipseFit(ring(Strokes::ellipse(60, 3.9))));
        QVERIFY(ellipseFit(ring(Strokes::ellipse(60, 4.4))));
    }

    void theErrorTellsEllipsesFromOtherThings()
    {
        QVERIFY(ellipseFit(ring(Strokes::ellipse(90, 50))).value().err < 0.02);
        QVERIFY(ellipseFit(ring(Strokes::closed({{0, 0}, {90, 0}, {90, 60}, {0, 60}}))).value().err > 0.08);
    }

    void circlesGoThroughTheirPoints()
    {
        const Circle circle = fitCircle(Points{{13, 4}, {8, 9}, {3, 4}, {8, -1}}).value();
        QVERIFY(Strokes::gap(circle.centre, {8, 4}) < 1e-9);
        QVERIFY(std::abs(circle.radius - 5) < 1e-9);
        QVERIFY(!fitCircle(Points{{0, 0}, {10, 10}, {20, 20}}));
        QVERIFY(!fitCircle(Strokes::ellipse(3.9, 3.9)));
        QVERIFY(!fitCircle({}));
    }

    void arcsSweepNeitherTooLittleNorTooMuch_data()
    {
        QTest::addColumn<double>("sweep");
        QTest::addColumn<int>("points"); // 0: no arc
        QTest::newRow("a bend") << 48.0 << 0;
        QTest::newRow("short") << 52.0 << 13;
        QTest::newRow("a quarter") << 92.0 << 19;
        QTest::newRow("backwards") << -92.0 << 19;
        QTest::newRow("long") << 317.0 << 64;
        QTest::newRow("all but closed") << 323.0 << 0;
    }

    void arcsSweepNeitherTooLittleNorTooMuch()
    {
        QFETCH(double, sweep);
        QFETCH(int, points);
        const Points drawn = arcDrawn(sweep);
        const auto result = arc(spaced(drawn));
        QCOMPARE(result ? static_cast<int>(result->points.size()) : 0, points);
        if (result) {
            QVERIFY(Strokes::gap(result->points.front(), drawn.front()) < 0.5);
            QVERIFY(Strokes::gap(result->points.back(), drawn.back()) < 0.5);
        }
    }

    void arcsGoOneWayOnACircle()
    {
        Points back = arcDrawn(120);
        const Points home = Strokes::reversed(arcDrawn(120));
        back.insert(back.end(), home.begin(), home.begin() + 30);
        QVERIFY(!arc(spaced(back)));
        QVERIFY(!arc(spaced({{0, 0}, {100, 0}, {100, 100}})));
    }
};

QTEST_GUILESS_MAIN(CurvesTest)
#include "CurvesTest.moc"
