#include "shapes/Star.h"
#include "shapes/StrokeGeometry.h"
#include "support/Strokes.h"

#include <QTest>

using namespace ShapeRecognizer;

namespace {

std::optional<Result> starOf(const Points &outline, bool yUp = true)
{
    const Points ring = Strokes::ring(outline);
    const Bounds box = bounds(ring);
    return star(ring, findCorners(ring), std::hypot(box.width, box.height), yUp);
}

double tilt(const Result &result)
{
    const Points &points = result.points;
    const Point centre = centroid(std::span(points).first(points.size() - 1));
    return std::atan2(points[0].y - centre.y, points[0].x - centre.x) * 360 / Strokes::turn;
}

// An outlined star with one gap between its tips that differs from the others.
Points starWithGap(double degrees)
{
    Points vertices;
    for (int tip = 0; tip < 5; ++tip) {
        const double step = tip == 0 ? degrees : (360 - degrees) / 4;
        const double angle = tip == 0 ? 0 : degrees + (tip - 1) * step;
        vertices.push_back(
            {100 * std::cos(Strokes::radians(angle)), 100 * std::sin(Strokes::radians(angle))});
        const double valley = Strokes::radians(angle + step / 2);
        vertices.push_back({45 * std::cos(valley), 45 * std::sin(valley)});
    }
    return Strokes::closed(vertices);
}

} // namespace

class StarTest : public QObject {
    Q_OBJECT

private slots:
    void aPentagramIsDrawnFromTipToTipAcross()
    {
        const Points tips = starOf(Strokes::star(100, 0)).value().points;
        QCOMPARE(tips.size(), 6U);
        QVERIFY(Strokes::gap(tips[0], tips[1]) > 170); // tips side by side are 118 apart
        QVERIFY(Strokes::gap(tips[1], tips[2]) > 170);
    }

    void starsStandUprightWhenNearlySo()
    {
        for (const auto &[inner, tilted] : // a pentagram and an outline
             {std::pair(0.0, 12.0), std::pair(0.0, 18.0), std::pair(40.0, -12.0), std::pair(40.0, -18.0)}) {
            const Points drawn = Strokes::turned(Strokes::star(100, inner), Strokes::radians(tilted));
            const double fromUp = std::remainder(tilt(starOf(drawn).value()) - 90, 72);
            const bool upright = std::abs(tilted) < 15;
            QVERIFY(upright ? std::abs(fromUp) < 1e-6 : std::abs(fromUp - tilted) < 4);
            const double fromDown
                = std::remainder(tilt(starOf(Strokes::scaled(drawn, 1, -1), false).value()) + 90, 72);
            QVERIFY(std::abs(fromDown + fromUp) < 1e-6);
        }
    }

    void theOutlineTurnsAsItWasDrawn()
    {
        const Points upwards = Strokes::star(100, 40); // from the topmost tip to the left
        QVERIFY(starOf(upwards).value().points[1].x < 0);
        QVERIFY(starOf(Strokes::reversed(upwards)).value().points[1].x > 0);
    }

    void starsHaveBounds_data()
    {
        QTest::addColumn<Points>("outline");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("deep notches") << Strokes::star(100, 64) << true;
        QTest::newRow("shallow notches") << Strokes::star(100, 67) << false;
        QTest::newRow("narrow gap") << starWithGap(48) << true;
        QTest::newRow("gap too narrow") << starWithGap(41) << false;
        QTest::newRow("wide gap") << starWithGap(97) << true;
        QTest::newRow("gap too wide") << starWithGap(108) << false;
        QTest::newRow("sharp tips") << Strokes::scaled(Strokes::star(60, 0), 2.4, 1) << true;
        QTest::newRow("a blunt tip") << Strokes::scaled(Strokes::star(60, 0), 3, 1) << false;
        QTest::newRow("sharp tips without crossings")
            << Strokes::closed({{0, 0}, {100, 0}, {70, 52}, {50, 17.3}, {30, 52}}) << false;
        QTest::newRow("a circle") << Strokes::ellipse(80, 80) << false;
    }

    void starsHaveBounds()
    {
        QFETCH(Points, outline);
        QTEST(starOf(outline).has_value(), "accepted");
    }
};

QTEST_GUILESS_MAIN(StarTest)
#include "StarTest.moc"
