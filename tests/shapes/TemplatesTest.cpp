#include "shapes/Templates.h"
#include "shapes/StrokeGeometry.h"
#include "support/Strokes.h"

#include <QTest>

using namespace ShapeRecognizer;
using Strokes::ring;

class TemplatesTest : public QObject {
    Q_OBJECT

private slots:
    void aHeartMatchesFromAnyStartInBothDirections()
    {
        for (const double share : {0.0, 0.21, 0.5, 0.83}) {
            const Points drawn = Strokes::startedAt(Strokes::heart(120), share);
            QVERIFY(matchTemplatesOnce(ring(drawn), true).value().score < 0.03);
            const Match match = matchTemplatesOnce(ring(Strokes::reversed(drawn)), true).value();
            QVERIFY(match.score < 0.03);
            QCOMPARE(match.result.points.size(), 201U);
            QVERIFY(std::abs(bounds(match.result.points).height - bounds(ring(drawn)).height) < 2);
        }
    }

    void aHeartPointsDownwardsOnEitherKindOfPaper()
    {
        const Points upsideDown = Strokes::scaled(Strokes::heart(120), 1, -1);
        QVERIFY(!matchTemplates(ring(upsideDown), true));
        const Points outline = matchTemplates(ring(upsideDown), false).value().points;
        QVERIFY(outline[100].y > outline[0].y + 30); // from the notch to the point
    }

    void flatHeartsAreNoHearts()
    {
        QVERIFY(matchTemplatesOnce(ring(Strokes::scaled(Strokes::heart(120), 1.9, 1)), true));
        QVERIFY(!matchTemplatesOnce(ring(Strokes::scaled(Strokes::heart(120), 2.2, 1)), true));
        QVERIFY(!matchTemplatesOnce(ring(Strokes::heart(3.9)), true));
    }

    void heartsMayDroopALittle()
    {
        const auto drooping = [](double slope) {
            Points points = Strokes::heart(120);
            for (Point &p : points)
                p.y += slope * std::abs(p.x);
            return points;
        };
        QVERIFY(matchTemplatesOnce(ring(drooping(0.78)), true));
        QVERIFY(!matchTemplatesOnce(ring(drooping(0.85)), true));
    }

    void theOutlineIsTiltedLikeTheStroke()
    {
        for (const double tilt : {-0.3, 0.2}) {
            const Points outline
                = matchTemplates(ring(Strokes::turned(Strokes::heart(120), tilt)), true).value().points;
            const Point axis{outline[0].x - outline[100].x, outline[0].y - outline[100].y};
            QVERIFY(std::abs(std::atan2(axis.y, axis.x) - Strokes::turn / 4 - tilt) < 0.02);
        }
    }
};

QTEST_GUILESS_MAIN(TemplatesTest)
#include "TemplatesTest.moc"
