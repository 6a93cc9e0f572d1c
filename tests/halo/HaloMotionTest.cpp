#include "halo/HaloMotion.h"

#include "halo/HaloColors.h"

#include <QTest>

#include <cmath>

namespace {

bool near(double a, double b) { return std::abs(a - b) < 1e-6; }

} // namespace

class HaloMotionTest : public QObject {
    Q_OBJECT

private slots:
    void aTurnTakesSevenSecondsWithoutPauses()
    {
        HaloMotion motion;
        QVERIFY(!motion.moving(1));
        motion.startSpin(10);
        motion.startSpin(12); // spins already
        QVERIFY(near(motion.turn(13.5), 0.5));
        motion.setPaused(true, 13.5);
        motion.setPaused(true, 14);
        QVERIFY(!motion.moving(20));
        QVERIFY(near(motion.turn(20), 0.5));
        motion.setPaused(false, 23.5);
        QVERIFY(near(motion.turn(24.2), 0.6));
        QVERIFY(near(motion.turn(27 + 7 * 1000), 0));
    }

    void stillnessKeepsTheColoursWhereTheyAre()
    {
        HaloMotion motion;
        motion.startSpin(0);
        motion.pulse(Pulse::strong, 1);
        motion.stop(1.75);
        QVERIFY(!motion.moving(1.8));
        QVERIFY(near(motion.turn(9), 0.25));
        QCOMPARE(motion.flash(1.8).swell, 1.0);
        motion.startSpin(20);
        QVERIFY(near(motion.turn(20.7), 0.35));
    }

    void aPulseRisesFastAndFallsSlowly()
    {
        for (const Pulse kind : {Pulse::gentle, Pulse::strong}) {
            const double lasts = kind == Pulse::gentle ? 0.9 : 0.5;
            const double swell = kind == Pulse::gentle ? 1.45 : 1.6;
            HaloMotion motion;
            motion.pulse(Pulse::gentle, 4.9); // replaced
            motion.pulse(kind, 5);
            const auto at = [&](double progress) { return motion.flash(5 + lasts * progress); };
            QVERIFY(near(at(0).swell, 1) && near(at(0).opacity, 0.85));
            QVERIFY(near(at(0.28).swell, swell) && near(at(0.28).opacity, 1));
            // Decelerating on the way up, slow at both ends on the way down.
            QVERIFY(at(0.14).swell > 1 + 0.6 * (swell - 1));
            QVERIFY(std::abs(at(0.64).swell - (1 + 0.5 * (swell - 1))) < 1e-3);
            QVERIFY(at(0.35).swell > 1 + 0.95 * (swell - 1));
            QVERIFY(motion.pulsing(5 + lasts * 0.99));
            QVERIFY(!motion.pulsing(5 + lasts * 1.01));
            QCOMPARE(at(1.01).opacity, HaloMotion::restOpacity);
        }
    }
};

QTEST_GUILESS_MAIN(HaloMotionTest)
#include "HaloMotionTest.moc"
