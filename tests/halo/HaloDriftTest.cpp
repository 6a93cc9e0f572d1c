#include "halo/HaloDrift.h"

#include "halo/HaloColors.h"
#include "halo/HaloMotion.h"

#include <QTest>

#include <array>
#include <cmath>

namespace {

constexpr std::size_t rings = HaloBand::rings.size();

// The most that any direction's colour differs between two turns, in shades.
double farthestApart(double turn, double other)
{
    HaloColors::Table a;
    HaloColors::Table b;
    HaloColors::fill(a, turn);
    HaloColors::fill(b, other);
    int most = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        most = std::max({most, std::abs(qRed(a[i]) - qRed(b[i])), std::abs(qGreen(a[i]) - qGreen(b[i])),
                         std::abs(qBlue(a[i]) - qBlue(b[i]))});
    return most;
}

// How much of the colours shows at most where this is the innermost ring.
double strength(std::size_t ring)
{
    double through = 1;
    for (std::size_t i = ring; i < rings; ++i)
        through *= 1 - HaloBand::rings[i].alpha;
    return HaloMotion::restOpacity * (1 - through);
}

} // namespace

class HaloDriftTest : public QObject {
    Q_OBJECT

private slots:
    void faintRingsLagButNeverVisibly()
    {
        HaloDrift drift;
        drift.reset(0.9); // so that it goes past a whole turn
        std::array<double, rings> shown{};
        shown.fill(0.9);
        double painted = 0;
        constexpr int frames = 105;
        for (int i = 1; i <= frames; ++i) {
            const double turn = std::fmod(0.9 + i / 210.0, 1.0);
            const std::size_t innermost = drift.catchUp(turn);
            QVERIFY(innermost >= 1);
            std::fill_n(shown.begin(), innermost, turn);
            for (std::size_t ring = 0; ring < rings; ++ring)
                QVERIFY(strength(ring) * farthestApart(turn, shown[ring]) < 2);
            painted += HaloBand::rings[innermost - 1].width;
        }
        QVERIFY(painted < frames * HaloBand::rings.back().width / 2);
    }

    void aLongLagReachesEveryRing()
    {
        HaloDrift drift;
        drift.reset(0.1);
        QCOMPARE(drift.catchUp(0.3), rings);
        QVERIFY(drift.catchUp(0.305) < rings);
    }
};

QTEST_GUILESS_MAIN(HaloDriftTest)
#include "HaloDriftTest.moc"
