#include "shapes/Quadrilaterals.h"
#include "shapes/ShapeRecognizer.h"
#include "support/Strokes.h"

#include <QTest>

using namespace ShapeRecognizer;

namespace {

FourPoints four(const Points &points) { return {points[0], points[1], points[2], points[3]}; }

FourPoints box(double width, double height, double tilt)
{
    const Points corners{{0, 0}, {width, 0}, {width, height}, {0, height}};
    return four(Strokes::turned(corners, Strokes::radians(tilt)));
}

FourPoints diamond(double width, double height)
{
    return {Point{width / 2, 0}, {0, height / 2}, {-width / 2, 0}, {0, -height / 2}};
}

double tilt(Point from, Point to) { return std::atan2(to.y - from.y, to.x - from.x) * 360 / Strokes::turn; }

} // namespace

class QuadrilateralsTest : public QObject {
    Q_OBJECT

private slots:
    void rectanglesSettle_data()
    {
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("drawn");
        QTest::addColumn<double>("settled");
        QTest::addColumn<double>("widthAfter");
        QTest::addColumn<bool>("isDiamond");
        QTest::newRow("nearly upright")
            << 200.0 << 6.5 << 0.0 << 200 * std::cos(Strokes::radians(6.5)) << false;
        QTest::newRow("tilted") << 200.0 << 7.5 << 7.5 << 200.0 << false;
        QTest::newRow("nearly a square") << 107.0 << 0.0 << 0.0 << 103.5 << false;
        QTest::newRow("not a square") << 110.0 << 0.0 << 0.0 << 110.0 << false;
        QTest::newRow("square on its corner") << 100.0 << 36.0 << 45.0 << 100.0 << true;
        QTest::newRow("square on its corner, other way") << 100.0 << -40.0 << -45.0 << 100.0 << true;
        QTest::newRow("square beyond the reach of a corner") << 100.0 << 34.5 << 34.5 << 100.0 << false;
        QTest::newRow("nearly even, on its corner") << 124.0 << 40.0 << 45.0 << 112.0 << true;
        QTest::newRow("uneven, on its corner") << 127.0 << 40.0 << 40.0 << 127.0 << false;
    }

    void rectanglesSettle()
    {
        QFETCH(double, drawn);
        QFETCH(double, width);
        QFETCH(double, settled);
        QFETCH(double, widthAfter);
        const auto [corners, isDiamond] = rectangle(box(width, 100, drawn)).value();
        QVERIFY(std::abs(tilt(corners[0], corners[1]) - settled) < 1e-6);
        QVERIFY(std::abs(Strokes::gap(corners[0], corners[1]) - widthAfter) < 1e-6);
        QTEST(isDiamond, "isDiamond");
    }

    void slantedCornersAreNotRight()
    {
        QVERIFY(rectangle({Point{0, 0}, {100, 0}, {134, 100}, {34, 100}}));  // 19 degrees off
        QVERIFY(!rectangle({Point{0, 0}, {100, 0}, {138, 100}, {38, 100}})); // 21 degrees off
        QVERIFY(!rectangle({Point{0, 0}, {0, 0}, {100, 100}, {0, 100}}));
    }

    void aRhombusHasEvenSidesAndSquareDiagonals()
    {
        QVERIFY(rhombus(diamond(100, 160)));
        QVERIFY(rhombus({Point{50, 0}, {0, 69}, {-50, 0}, {0, -30}})); // a kite, sides 19 % off their mean
        QVERIFY(!rhombus({Point{50, 0}, {0, 74.5}, {-50, 0}, {0, -30}}));
        QVERIFY(rhombus(box(100, 78, 0)));  // diagonals 76 degrees apart
        QVERIFY(!rhombus(box(100, 75, 0))); // 74 degrees
        QVERIFY(!rhombus({Point{0, 0}, {0, 0}, {0, 0}, {0, 0}}));
    }

    void aRhombusIsDrawnUprightWhenNearlySo()
    {
        for (const auto &[drawn, settled] : {std::pair(7.0, 0.0), std::pair(9.0, 9.0)}) {
            const FourPoints corners = diamond(100, 160);
            const Points tilted = Strokes::turned({corners.begin(), corners.end()}, Strokes::radians(drawn));
            const FourPoints result = rhombus(four(tilted)).value();
            QVERIFY(std::abs(tilt(result[0], result[2]) - settled) < 1e-6);
            QVERIFY(std::abs(Strokes::gap(result[1], result[3]) - 160) < 1e-6);
        }
    }

    void roundedDiamondsAreFoundByTheirAxes()
    {
        const auto ring = [](const Points &vertices) { return Strokes::along(Strokes::closed(vertices), 3); };
        const Points rounded{{52, 0},  {50, 8},   {8, 74},   {0, 78},  {-8, 74}, {-50, 8},
                             {-52, 0}, {-50, -8}, {-8, -74}, {0, -78}, {8, -74}, {50, -8}};
        const FourPoints found = rhombusByAxes(ring(rounded), 113).value();
        QVERIFY(std::abs(Strokes::gap(found[0], found[2]) - 156) < 1e-6);
        QVERIFY(!rhombusByAxes(ring(rounded), 107)); // the same, as if it were smaller
        QVERIFY(rhombusByAxes(ring({{50, 0}, {0, 4.2}, {-50, 0}, {0, -4.2}}), 100));
        QVERIFY(!rhombusByAxes(ring({{50, 0}, {0, 3.8}, {-50, 0}, {0, -3.8}}), 100));
    }
};

QTEST_GUILESS_MAIN(QuadrilateralsTest)
#include "QuadrilateralsTest.moc"
