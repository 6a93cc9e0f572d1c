#include "shapes/CircleArc.h"
#include "shapes/EllipseFit.h"
#include "shapes/StrokeGeometry.h"
#include "support/Strokes.h"

#include <QTest>

using namespace ShapeRecognizer;
using Strokes::ring;

namespace {

Points spaced(const Points &points) { return resample(points, 64); }

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
        QVERIFY(!ellipseFit(ring(Strokes::closed({{60, 0}, {0, 4.5}, {-60, 0}, {0, -4.5}})))); // on average
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

    void arcsSweepNeitherTooLittleNorTooMuch()
    {
        for (const double sweep : {48.0, 323.0}) // hardly a bend, and all but closed
            QVERIFY(!arc(spaced(arcDrawn(sweep))));
        for (const auto &[sweep, points] :
             {std::pair(52.0, 13U), std::pair(92.0, 19U), std::pair(-92.0, 19U), std::pair(317.0, 64U)}) {
            const Points drawn = arcDrawn(sweep);
            const Points outline = arc(spaced(drawn)).value().points;
            QCOMPARE(outline.size(), points);
            QVERIFY(Strokes::gap(outline.front(), drawn.front()) < 0.5);
            QVERIFY(Strokes::gap(outline.back(), drawn.back()) < 0.5);
        }
    }

    void arcsGoOneWay()
    {
        const Points home = Strokes::reversed(arcDrawn(120)); // a point a degree
        for (const auto &[degreesBack, accepted] : {std::pair(6, true), std::pair(11, false)}) {
            Points drawn = arcDrawn(120);
            drawn.insert(drawn.end(), home.begin(), home.begin() + degreesBack);
            QCOMPARE(arc(spaced(drawn)).has_value(), accepted);
        }
    }

    void arcsKeepToTheirCircle()
    {
        for (const auto &[depth, accepted] : {std::pair(0.09, true), std::pair(0.102, false)}) {
            Points drawn = arcDrawn(180);
            for (std::size_t i = 0; i < drawn.size(); ++i) {
                const double radius = 1 + depth * std::sin(0.3 * static_cast<double>(i));
                drawn[i] = {radius * drawn[i].x, radius * drawn[i].y};
            }
            QCOMPARE(arc(spaced(drawn)).has_value(), accepted);
        }
    }
};

QTEST_GUILESS_MAIN(CurvesTest)
#include "CurvesTest.moc"
