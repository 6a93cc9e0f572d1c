#include "shapes/Star.h"
#include "shapes/StrokeGeometry.h"
#include "support/Strokes.h"

#include <QTest>

using namespace ShapeRecognizer;

namespace {

std::optional<Result> starOf(const Points &outline, bool yUp = true)
{
    Points ring = resample(outline, 65);
    ring.pop_back();
    const Bounds box = bounds(ring);
    return star(ring, findCorners(ring), std::hypot(box.width, box.height), yUp);
}

double tilt(const Result &result)
{
    const Points &points = result.points;
    const Point centre = centroid(std::span(points).first(points.size() - 1));
    return std::atan2(points[0].y - centre.y, points[0].x - centre.x) * 360 / Strokes::turn;
}

} // namespace

class StarTest : public QObject {
    Q_OBJECT

private slots:
    void bothWaysOfDrawingGiveAStar()
    {
        QCOMPARE(starOf(Strokes::star(100, 0)).value().points.size(), 6U);
        QCOMPARE(starOf(Strokes::star(100, 40)).value().points.size(), 11U);
    }

    void starsStandUprightWhenNearlySo_data()
    {
        QTest::addColumn<double>("inner");
        QTest::addColumn<double>("tilted");
        QTest::addColumn<bool>("upright");
        QTest::newRow("pentagram, 12 degrees") << 0.0 << 12.0 << true;
        QTest::newRow("pentagram, 18 degrees") << 0.0 << 18.0 << false;
        QTest::newRow("outline, 12 degrees") << 40.0 << -12.0 << true;
        QTest::newRow("outline, 18 degrees") << 40.0 << -18.0 << false;
    }

    void starsStandUprightWhenNearlySo()
    {
        QFETCH(double, inner);
        QFETCH(double, tilted);
        QFETCH(bool, upright);
        const Points drawn = Strokes::turned(Strokes::star(100, inner), Strokes::radians(tilted));
        const double fromUp = std::remainder(tilt(starOf(drawn).value()) - 90, 72);
        if (upright)
            QVERIFY(std::abs(fromUp) < 1e-6);
        else
            QVERIFY(std::abs(fromUp - tilted) < 4);
        const double fromDown
            = std::remainder(tilt(starOf(Strokes::scaled(drawn, 1, -1), false).value()) + 90, 72);
        QVERIFY(std::abs(fromDown + fromUp) < 1e-6);
    }

    void theOutlineTurnsAsItWasDrawn()
    {
        const auto area = [](const Points &points) {
            double sum = 0;
            for (std::size_t i = 1; i < points.size(); ++i)
                sum += points[i - 1].x * points[i].y - points[i].x * points[i - 1].y;
            return sum;
        };
        QVERIFY(area(starOf(Strokes::star(100, 40)).value().points) > 0);
        QVERIFY(area(starOf(Strokes::reversed(Strokes::star(100, 40))).value().points) < 0);
    }

    void starsAreRejected_data()
    {
        QTest::addColumn<Points>("outline");
        QTest::newRow("shallow notches") << Strokes::star(100, 74);
        QTest::newRow("a circle") << Strokes::ellipse(80, 80);
        QTest::newRow("squeezed tips") << Strokes::scaled(Strokes::star(100, 40), 0.35, 1);
        Points fourTips;
        for (int i = 0; i < 8; ++i)
            fourTips.push_back({(i % 2 ? 35 : 100) * std::cos(i * Strokes::turn / 8),
                                (i % 2 ? 35 : 100) * std::sin(i * Strokes::turn / 8)});
        QTest::newRow("four tips") << Strokes::closed(fourTips);
    }

    void starsAreRejected()
    {
        QFETCH(Points, outline);
        QVERIFY(!starOf(outline));
    }
};

QTEST_GUILESS_MAIN(StarTest)
#include "StarTest.moc"
