#include "shapes/ShapeRecognizer.h"
#include "support/Strokes.h"

#include <QTest>

#include <limits>

using namespace ShapeRecognizer;
using namespace Strokes;

namespace {

constexpr int drawings = 60; // of each shape

QString nameOf(const Points &stroke, bool yUp = true)
{
    const auto result = recognize(stroke, yUp);
    return result ? QString::fromStdString(result->name) : "-";
}

// How far a shape may be tilted and still be the same, and what else varies.
struct Family {
    Points outline;    // about 100 points across
    double tilt;       // degrees
    bool anyDirection; // a closed shape also begins anywhere
};

Points drawnLike(const Family &family, Dice &dice)
{
    const double size = between(0.6, 4, dice);
    Points stroke = scaled(family.outline, size, size);
    if (family.anyDirection) {
        stroke = startedAt(along(stroke, 2), between(0, 1, dice));
        if (between(0, 1, dice) < 0.5)
            stroke = reversed(stroke);
    }
    stroke = turned(along(stroke, 2), radians(between(-family.tilt, family.tilt, dice)));
    return wobbly(stroke, 0.006 * 100 * size, dice);
}

} // namespace

Q_DECLARE_METATYPE(Family)

class ShapeRecognizerTest : public QObject {
    Q_OBJECT

private slots:
    void drawnShapesAreRecognised_data()
    {
        QTest::addColumn<Family>("family");
        const auto row
            = [](const char *name, const char *tag, Points outline, double tilt, bool anyDirection) {
                  QTest::addRow("%s: %s", name, tag) << Family{std::move(outline), tilt, anyDirection};
              };
        row("linea", "any", {{0, 0}, {110, 0}}, 180, false);
        row("flecha", "two barbs", {{0, 0}, {110, 0}, {85, 20}, {110, 0}, {85, -20}}, 180, false);
        row("flecha", "one barb", {{0, 0}, {110, 0}, {85, 20}}, 180, false);
        row("visto", "any", {{0, 40}, {30, 0}, {110, 90}}, 8, false);
        row("arco", "half", ellipse(55, 55, 0, 3.1), 180, false);
        row("circulo", "any", ellipse(50, 50), 180, true);
        row("elipse", "any", ellipse(60, 35), 180, true);
        row("estrella", "outline", star(60, 24), 180, true);
        row("estrella", "pentagram", star(60, 0), 180, true);
        row("triangulo", "any", closed({{0, 0}, {110, 0}, {50, 90}}), 180, true);
        row("rectangulo", "long", closed({{0, 0}, {110, 0}, {110, 60}, {0, 60}}), 180, true);
        row("rectangulo", "square", closed({{0, 0}, {90, 0}, {90, 90}, {0, 90}}), 25, true);
        row("rombo", "square on its corner", closed({{60, 0}, {0, 60}, {-60, 0}, {0, -60}}), 5, true);
        row("rombo", "tall", closed({{40, 0}, {0, 70}, {-40, 0}, {0, -70}}), 180, true);
        row("cuadrilatero", "any", closed({{0, 0}, {130, 0}, {142, 69}, {58, 100}}), 180, true);
        row("corazon", "any", heart(100), 12, true);
    }

    void drawnShapesAreRecognised()
    {
        QFETCH(Family, family);
        const QString name = QString(QTest::currentDataTag()).section(':', 0, 0);
        Dice dice(7);
        for (int i = 0; i < drawings; ++i) {
            const Points stroke = drawnLike(family, dice);
            const auto result = recognize(stroke, true);
            QCOMPARE(QString::fromStdString(result ? result->name : "-"), name);
            QCOMPARE(result->points.front() == result->points.back(), family.anyDirection); // closed
            QCOMPARE(nameOf(scaled(stroke, 1, -1), false), name);
        }
    }

    void otherThingsStayAsDrawn_data()
    {
        QTest::addColumn<Points>("stroke");
        QTest::newRow("nothing") << Points{};
        QTest::newRow("a resting hand") << Points(500, Point{10, 10});
        QTest::newRow("too small") << along({{0, 0}, {15.9, 0}}, 1);
        QTest::newRow("zigzag") << along({{0, 0}, {60, 90}, {120, 0}, {180, 90}, {240, 0}}, 2);
        QTest::newRow("letter S") << along({{90, 90}, {20, 100}, {0, 70}, {90, 40}, {80, 0}, {0, 10}}, 2);
        QTest::newRow("bow tie") << along(closed({{0, 0}, {100, 100}, {100, 0}, {0, 100}}), 2);
    }

    void otherThingsStayAsDrawn()
    {
        QFETCH(Points, stroke);
        QCOMPARE(nameOf(stroke), "-");
    }

    void aLineMayBendALittle()
    {
        QCOMPARE(nameOf(along({{0, 0}, {50, 6.8}, {100, 0}}, 2)), "linea"); // below 5 % and 2 points
        QCOMPARE(nameOf(along({{0, 0}, {50, 7.2}, {100, 0}}, 2)), "-");
        QCOMPARE(nameOf(along({{0, 0}, {16, 0}}, 1)), "linea");
        for (const auto &[size, name] : {std::pair(4.0, "linea"), std::pair(4.6, "-")}) {
            Points trembling{{0, 0}};
            for (int i = 1; i < 8; ++i)
                trembling.push_back({12.5 * i, i % 2 == 1 ? size : -size});
            trembling.push_back({100, 0});
            QCOMPARE(nameOf(along(trembling, 2)), name); // less than 10 % longer than straight
        }
    }

    void fivePointsApartAreEnough()
    {
        QCOMPARE(nameOf({{0, 0}, {0.52, 0}, {30, 0}, {60, 0}, {90, 0}}), "linea");
        QCOMPARE(nameOf({{0, 0}, {0.48, 0}, {30, 0}, {60, 0}, {90, 0}}), "-");
    }

    void sidesMayBulgeALittle()
    {
        const auto bulging = [](double by) {
            const double aside = 0.8 * by;
            const double up = 45 + 0.5 * by;
            return along(closed({{0, 0}, {55, -by}, {110, 0}, {80 + aside, up}, {50, 90}, {25 - aside, up}}),
                         2);
        };
        QCOMPARE(nameOf(bulging(11.4)), "triangulo");
        QCOMPARE(nameOf(bulging(12.6)), "-");
    }

    void circlesMayBeDented()
    {
        const auto dented = [](int times, double depth) {
            Points points = ellipse(60, 60);
            for (Point &p : points) {
                const double radius = 1 + depth * std::cos(times * std::atan2(p.y, p.x));
                p = {radius * p.x, radius * p.y};
            }
            return points;
        };
        QCOMPARE(nameOf(dented(3, 0.125)), "circulo");
        QCOMPARE(nameOf(dented(3, 0.133)), "-");
    }

    void cleanEllipsesComeBeforePolygons()
    {
        const auto pointed = [](double power) {
            Points points = ellipse(1, 1);
            for (Point &p : points)
                p = {60 * std::copysign(std::pow(std::abs(p.x), power), p.x),
                     60 * std::copysign(std::pow(std::abs(p.y), power), p.y)};
            return points;
        };
        QCOMPARE(nameOf(pointed(1.475)), "circulo");
        QCOMPARE(nameOf(pointed(1.51)), "rombo");
    }

    void longWaysCloseWiderGaps()
    {
        // A rectangle 100 wide with a gap in the middle of its lower side.
        const auto drawn = [](double height, double gap) {
            const double from = 50 + gap / 2, to = 50 - gap / 2;
            return along({{from, 0}, {100, 0}, {100, height}, {0, height}, {0, 0}, {to, 0}}, 2);
        };
        QCOMPARE(nameOf(drawn(20, 19)), "rectangulo");
        QCOMPARE(nameOf(drawn(20, 22)), "-");
        QCOMPARE(nameOf(drawn(70, 30)), "rectangulo");
        QCOMPARE(nameOf(drawn(70, 45)), "-");
    }

    void overshootingItsStartDoesNotHarmACircle()
    {
        Points stroke = ellipse(60, 60);
        for (int i = 1; i <= 10; ++i)
            stroke.push_back({60.0 + 2 * i, 3.0 * i});
        const auto result = recognize(stroke, true).value();
        QCOMPARE(QString::fromStdString(result.name), "circulo");
        QVERIFY(gap(result.points.front(), {60, 0}) < 0.3);
    }

    void aHastyArmCountsLikeASlowOne()
    {
        Points stroke = along({{30, 0}, {110, 90}}, 2);
        stroke.insert(stroke.begin(), {0, 40});
        QCOMPARE(nameOf(stroke), "visto");
    }

    void fiveCornersAreNeverAnEllipse() { QCOMPARE(nameOf(along(polygon(5, 60), 2)), "-"); }

    void wildNumbersDoNoHarm()
    {
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        constexpr double infinity = std::numeric_limits<double>::infinity();
        for (const double wild : {nan, infinity, -infinity, 1e300, -1e308, 1e17, 1e-310}) {
            for (Points stroke : {along({{0, 0}, {90, 2}}, 2), ellipse(50, 50), star(60, 24), heart(90)}) {
                for (const std::size_t at : {std::size_t{0}, stroke.size() / 2, stroke.size() - 1}) {
                    stroke[at].x = wild;
                    const auto result = recognize(stroke, true);
                    QVERIFY(!result || std::isfinite(result->points.back().x));
                }
                (void)recognize(scaled(stroke, wild, wild), true);
            }
        }
        Points holed = ellipse(50, 50);
        holed[30] = {nan, 3}; // as if it had not been reported
        QCOMPARE(nameOf(holed), "circulo");
    }

    void aMillionPointsAreNotTooMany()
    {
        QCOMPARE(nameOf(resample(closed({{0, 0}, {9e5, 0}, {5e5, 8e5}}), 1'000'000)), "triangulo");
    }
};

QTEST_GUILESS_MAIN(ShapeRecognizerTest)
#include "ShapeRecognizerTest.moc"
