#include "shapes/StrokeGeometry.h"
#include "shapes/Corners.h"
#include "shapes/Cyclic.h"
#include "shapes/ShapeRecognizer.h"
#include "support/Strokes.h"

#include <QTest>

using namespace ShapeRecognizer;
using Strokes::gap;
using Strokes::ring;

class StrokeGeometryTest : public QObject {
    Q_OBJECT

private slots:
    void resampledPointsAreEvenlySpaced()
    {
        const Points path{{0, 0}, {100, 0}, {100, 1}, {100, 2}, {100, 60}};
        const Points spaced = resample(path, 41);
        QCOMPARE(spaced.size(), 41U);
        QCOMPARE(spaced.front(), path.front());
        QVERIFY(gap(spaced.back(), path.back()) < 1e-9);
        QVERIFY(gap(spaced[25], {100, 0}) < 1e-9);
        QVERIFY(gap(spaced[26], {100, 4}) < 1e-9);
    }

    void smoothingReadsOnlyWhatWasDrawn()
    {
        const Points four{{0, 0}, {1, 9}, {2, 0}, {3, 9}};
        QCOMPARE(smooth(four), four);
        const Points five{{0, 0}, {1, 12}, {2, 0}, {3, 24}, {4, 0}};
        QCOMPARE(smooth(five), (Points{{0, 0}, {1.5, 9}, {2, 7.2}, {2.5, 9}, {4, 0}}));
    }

    void simplifySplitsAtTheFirstOfEquallyFarPoints()
    {
        QCOMPARE(simplify(Points{{0, 0}, {1, 5}, {9, 5}, {10, 0}}, 4.5), (Points{{0, 0}, {1, 5}, {10, 0}}));
    }

    void overlapIsCutAtTheNearestOfTheLastQuarter()
    {
        const Points stroke{{0, 0}, {9, 0}, {9, 9}, {5, 5}, {4, 4}, {1, 0}, {0, 9}, {1, 7}, {5, 5}, {6, 6}};
        QCOMPARE(trimOverlap(stroke).size(), 8U); // ties with (5, 5), which comes later
        Points nearer = stroke;
        nearer.back() = {1, 1};
        QCOMPARE(trimOverlap(nearer).size(), 10U);
        QCOMPARE(trimOverlap(std::span(stroke).first(4)).size(), 4U);
    }

    void linesSnapWithinFourDegrees()
    {
        const Points snapped = snapLine({0, 0}, {100, 6}); // 3.4 degrees
        QVERIFY(gap(snapped[1], {std::hypot(100, 6), 0}) < 1e-9);
        QCOMPARE(snapLine({0, 0}, {100, 8}), (Points{{0, 0}, {100, 8}})); // 4.6 degrees
        const Points diagonal = snapLine({10, 10}, {-88, -92});
        QVERIFY(std::abs((diagonal[1].x - 10) - (diagonal[1].y - 10)) < 1e-9);
        QVERIFY(diagonal[1].x < 0);
    }

    void aSquareHasFourCorners()
    {
        const Points square = ring(Strokes::closed({{50, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}}));
        QCOMPARE(findCorners(square), (Corners{8, 24, 40, 56}));
    }

    void aHexagonHasCornersAHeptagonNone()
    {
        const auto cornersOf = [](int sides) {
            Points points = Strokes::along(Strokes::polygon(sides, 60), 5);
            points.pop_back();
            return findCorners(points).size();
        };
        QCOMPARE(cornersOf(6), 6U); // 60 degrees each
        QCOMPARE(cornersOf(7), 0U); // 51 degrees
    }

    void ofTwoTurnsFourPointsApartTheSharperIsTheCorner()
    {
        Points points = Strokes::along({{-20, 0}, {0, 0}, {0, 4}}, 1);
        for (int i = 1; i <= 20; ++i)
            points.push_back({i * std::cos(Strokes::radians(28)), 4 + i * std::sin(Strokes::radians(28))});
        const Corners corners = findCorners(points);
        QCOMPARE(std::ranges::count(corners, 20U), 1);
        QCOMPARE(std::ranges::count(corners, 24U), 0); // 62 degrees
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
};

QTEST_GUILESS_MAIN(StrokeGeometryTest)
#include "StrokeGeometryTest.moc"
