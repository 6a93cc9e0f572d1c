#include "shapes/OpenFitters.h"
#include "support/Strokes.h"

#include <QTest>

using namespace ShapeRecognizer;

namespace {

constexpr Point tip{200, 0};

// The end of a barb that leaves the tip at an angle to the way back.
Point barb(double length, double degrees)
{
    const double angle = Strokes::radians(180 - degrees);
    return {tip.x + length * std::cos(angle), tip.y + length * std::sin(angle)};
}

// Two arms that meet at the origin, given by their lengths and directions.
Points arms(double first, double firstDegrees, double second, double secondDegrees)
{
    const auto end = [](double length, double degrees) {
        return Point{length * std::cos(Strokes::radians(degrees)),
                     length * std::sin(Strokes::radians(degrees))};
    };
    return {end(first, firstDegrees), {0, 0}, end(second, secondDegrees)};
}

// A check mark whose long arm swings `size` to either side, `count` times.
Points shaken(double size, int count)
{
    const double length = std::hypot(80, 90);
    Points vertices{{0, 40}, {30, 0}};
    for (int i = 1; i <= count; ++i) {
        const double t = static_cast<double>(i) / (count + 1);
        const double aside = (i % 2 == 1 ? size : -size) / length;
        vertices.push_back({30 + 80 * t + aside * 90, 90 * t - aside * 80});
    }
    vertices.push_back({110, 90});
    return vertices;
}

} // namespace

class OpenFittersTest : public QObject {
    Q_OBJECT

private slots:
    void arrowsHaveBounds_data()
    {
        QTest::addColumn<Points>("vertices");
        QTest::addColumn<double>("diag");
        QTest::addColumn<bool>("accepted");
        // A head that goes to and fro between the tip and the ends of its barbs.
        const auto row = [](const char *name, Points head, double diag, bool accepted, Points bulge = {}) {
            Points vertices{{0, 0}};
            vertices.insert(vertices.end(), bulge.begin(), bulge.end());
            vertices.push_back(tip);
            vertices.insert(vertices.end(), head.begin(), head.end());
            QTest::newRow(name) << vertices << diag << accepted;
        };
        const Point left = barb(60, 40);
        row("no head", {}, 240, false);
        row("folding back", {barb(60, 73)}, 240, true);
        row("sticking out", {barb(60, 77)}, 240, false);
        row("long shaft", {left}, 355, true);
        row("short shaft", {left}, 372, false);
        row("barb off the line", {barb(18, 40)}, 283, true);
        row("barb lost in the line", {barb(18, 40)}, 320, false);
        row("barb long enough to count", {barb(17, 40)}, 240, true);
        row("barb too short to count", {barb(15, 40)}, 240, false);
        row("barb within reach", {barb(86, 40)}, 240, true);
        row("barb out of reach", {barb(93, 40)}, 240, false);
        row("head short enough", {barb(78, 40), tip, barb(78, -40)}, 240, true);
        row("head too long", {barb(82, 40), tip, barb(82, -40)}, 240, false);
        row("six vertices", {barb(40, 40), tip, barb(40, -40), tip}, 240, true);
        row("seven vertices", {barb(40, 40), tip, barb(40, -40), tip, barb(40, 40)}, 240, false);
        row("shaft straight enough", {left}, 355, true, {{100, -17.8}});
        row("shaft too bent", {left}, 355, false, {{100, -18.5}});
    }

    void arrowsHaveBounds()
    {
        QFETCH(Points, vertices);
        QFETCH(double, diag);
        QTEST(arrow(Strokes::along(vertices, 4), diag).has_value(), "accepted");
    }

    void anyHeadBecomesTwoBarbs()
    {
        for (const auto &[scale, length] :
             {std::pair(0.2, 12.0), std::pair(1.0, 44.0), std::pair(3.0, 60.0)}) {
            const Points drawn
                = Strokes::scaled(Strokes::along({{0, 0}, tip, barb(50, 37)}, 4), scale, scale);
            const Points outline = arrow(drawn, 205 * scale).value().points;
            QCOMPARE(outline.size(), 5U);
            QCOMPARE(outline[0], drawn.front());
            QCOMPARE(outline[1], outline[3]);
            QVERIFY(std::abs(Strokes::gap(outline[1], outline[2]) - length) < 1e-9);
            QVERIFY(std::abs(Strokes::gap(outline[2], outline[4]) - 2 * length * std::sin(0.5)) < 1e-9);
            QVERIFY(outline[2].x < outline[1].x);
        }
    }

    void checksHaveBounds_data()
    {
        QTest::addColumn<Points>("vertices");
        QTest::addColumn<double>("diag");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("long arm first") << Points{{110, 90}, {30, 0}, {0, 40}} << 140.0 << false;
        QTest::newRow("upside down") << Points{{0, -40}, {30, 0}, {110, -90}} << 140.0 << false;
        QTest::newRow("sharp") << arms(60, 88, 120, 40) << 130.0 << true;
        QTest::newRow("too sharp") << arms(60, 82, 120, 40) << 130.0 << false;
        QTest::newRow("blunt") << arms(60, 157, 120, 40) << 160.0 << true;
        QTest::newRow("too blunt") << arms(60, 163, 120, 40) << 160.0 << false;
        QTest::newRow("arms differ") << arms(80, 140, 100, 60) << 130.0 << true;
        QTest::newRow("arms alike") << arms(80, 140, 92, 60) << 130.0 << false;
        QTest::newRow("end below start") << arms(80, 110, 120, 30) << 130.0 << false;
        QTest::newRow("short arm seen") << arms(30, 130, 120, 40) << 190.0 << true;
        QTest::newRow("short arm missing") << arms(30, 130, 120, 40) << 210.0 << false;
        QTest::newRow("bulging a little") << shaken(20, 1) << 150.0 << true;
        QTest::newRow("bulging too much") << shaken(20, 1) << 132.0 << false;
        QTest::newRow("shaken a little") << shaken(11, 7) << 150.0 << true;
        QTest::newRow("shaken too much") << shaken(12, 7) << 150.0 << false;
    }

    void checksHaveBounds()
    {
        QFETCH(Points, vertices);
        QFETCH(double, diag);
        QFETCH(bool, accepted);
        const Points drawn = Strokes::along(vertices, 2);
        QCOMPARE(check(drawn, diag, true).has_value(), accepted);
        QCOMPARE(check(Strokes::scaled(drawn, 1, -1), diag, false).has_value(), accepted);
    }

    void aCheckIsNotAllOneArm()
    {
        for (const int steps : {2, 3}) {
            Points drawn = Strokes::along({{0, 40}, {30, 0}}, 50.0 / steps);
            const Points arm = Strokes::along({{30, 0}, {110, 90}}, 4);
            drawn.insert(drawn.end(), arm.begin() + 1, arm.end());
            QCOMPARE(check(drawn, 140, true).has_value(), steps == 3);

            drawn = Strokes::along({{0, 40}, {30, 0}}, 4);
            const Points coarse = Strokes::along({{30, 0}, {110, 90}}, 120.0 / steps);
            drawn.insert(drawn.end(), coarse.begin() + 1, coarse.end());
            QCOMPARE(check(drawn, 140, true).has_value(), steps == 3);
        }
    }

    void theArmsMeetInTheFirstOfEquallyLowPoints()
    {
        const Points flat = Strokes::along({{0, 40}, {30, 0}, {36, 0}, {110, 90}}, 2);
        QCOMPARE(check(flat, 140, true).value().points[1], (Point{30, 0}));
    }
};

QTEST_GUILESS_MAIN(OpenFittersTest)
#include "OpenFittersTest.moc"
