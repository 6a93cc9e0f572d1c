#include "shapes/OpenFitters.h"
#include "shapes/StrokeGeometry.h"
#include "support/Strokes.h"

#include <QTest>

using namespace ShapeRecognizer;

namespace {

Points spaced(const Points &vertices) { return resample(vertices, 64); }

double diagonal(const Points &points)
{
    const Bounds box = bounds(points);
    return std::hypot(box.width, box.height);
}

std::optional<Result> arrowOf(const Points &vertices)
{
    return arrow(spaced(vertices), diagonal(spaced(vertices)));
}

std::optional<Result> checkOf(const Points &vertices, bool yUp = true)
{
    return check(spaced(vertices), diagonal(spaced(vertices)), yUp);
}

// The end of a barb that leaves the tip at an angle to the way back.
Point barb(Point tip, double length, double degrees)
{
    const double angle = Strokes::radians(180 - degrees);
    return {tip.x + length * std::cos(angle), tip.y + length * std::sin(angle)};
}

} // namespace

class OpenFittersTest : public QObject {
    Q_OBJECT

private slots:
    void aBarbFoldsBackAlongTheShaft_data()
    {
        QTest::addColumn<double>("length");
        QTest::addColumn<double>("angle");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("plain") << 60.0 << 40.0 << true;
        QTest::newRow("just folding back") << 60.0 << 73.0 << true;
        QTest::newRow("sticking out") << 60.0 << 77.0 << false;
        QTest::newRow("as long as a head may be") << 86.0 << 40.0 << true;
        QTest::newRow("too long for a head") << 93.0 << 40.0 << false;
    }

    void aBarbFoldsBackAlongTheShaft()
    {
        QFETCH(double, length);
        QFETCH(double, angle);
        QTEST(arrowOf({{0, 0}, {200, 0}, barb({200, 0}, length, angle)}).has_value(), "accepted");
    }

    void arrowsAreRejected_data()
    {
        QTest::addColumn<Points>("vertices");
        QTest::newRow("no head") << Points{{0, 0}, {200, 0}};
        QTest::newRow("short shaft") << Points{{0, 0}, {100, 0}, {60, 40}, {100, 0}, {60, -200}};
        QTest::newRow("scribbled head")
            << Points{{0, 0}, {200, 0}, {160, 30}, {200, 0}, {160, -30}, {200, 0}, {150, 40}, {190, 40}};
        QTest::newRow("zigzag") << Points{{0, 0}, {60, 60}, {120, 0}, {180, 60}};
    }

    void arrowsAreRejected()
    {
        QFETCH(Points, vertices);
        QVERIFY(!arrowOf(vertices));
    }

    void oneBarbBecomesTwo()
    {
        const Points outline = arrowOf({{0, 0}, {200, 0}, {160, 30}}).value().points;
        QCOMPARE(outline.size(), 5U);
        QCOMPARE(outline[1], outline[3]);
        QVERIFY(std::abs(outline[2].x - outline[4].x) < 1);
        QVERIFY(std::abs(outline[2].y + outline[4].y - 2 * outline[1].y) < 1);
    }

    void barbsHaveBounds()
    {
        for (const auto &[scale, length] :
             {std::pair(0.2, 12.0), std::pair(1.0, 44.0), std::pair(3.0, 60.0)}) {
            const Points vertices = Strokes::scaled({{0, 0}, {200, 0}, {160, 30}}, scale, scale);
            const Points outline = arrowOf(vertices).value().points;
            QVERIFY(std::abs(Strokes::gap(outline[1], outline[2]) - length) < 1);
        }
    }

    void checksAreDrawnShortArmFirst_data()
    {
        QTest::addColumn<Points>("vertices");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("plain") << Points{{0, 40}, {30, 0}, {110, 90}} << true;
        QTest::newRow("long arm first") << Points{{110, 90}, {30, 0}, {0, 40}} << false;
        QTest::newRow("upside down") << Points{{0, -40}, {30, 0}, {110, -90}} << false;
        QTest::newRow("too sharp") << Points{{20, 40}, {30, 0}, {60, 90}} << false;
        QTest::newRow("too blunt") << Points{{-30, 20}, {30, 0}, {150, 60}} << false;
        QTest::newRow("end below start") << Points{{0, 60}, {30, 0}, {120, 55}} << false;
        QTest::newRow("arms alike") << Points{{0, 50}, {40, 0}, {80, 55}} << false;
        QTest::newRow("short arm missing") << Points{{18, 11}, {30, 0}, {110, 90}} << false;
        QTest::newRow("bulging") << Points{{0, 40}, {30, 0}, {90, 20}, {110, 90}} << false;
    }

    void checksAreDrawnShortArmFirst()
    {
        QFETCH(Points, vertices);
        QFETCH(bool, accepted);
        QCOMPARE(checkOf(vertices).has_value(), accepted);
        QCOMPARE(checkOf(Strokes::scaled(vertices, 1, -1), false).has_value(), accepted);
    }
};

QTEST_GUILESS_MAIN(OpenFittersTest)
#include "OpenFittersTest.moc"
