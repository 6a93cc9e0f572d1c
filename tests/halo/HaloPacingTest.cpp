#include "halo/HaloPacing.h"

#include <QTest>

#include <cmath>

using Reason = HaloPacing::Reason;
using Rest = HaloPacing::Rest;
using State = HaloPacing::State;

namespace {

constexpr double cheap = 0.001; // seconds

// A pacing whose frames are painted at once and shown after some time.
struct Frames {
    HaloPacing pacing;
    double now = 100;

    // Goes on to the moment when the pacing is due and paints.
    void paintNext(Rest rest = Rest::nothing, double cost = cheap)
    {
        now = pacing.due().value();
        if (!between)
            pacing.begin(now);
        between = rest == Rest::pieces;
        pacing.ask();
        QVERIFY(pacing.paint());
        now += cost;
        pacing.show(rest, now);
    }

    // How long after the last frame's beginning the next one is due.
    [[nodiscard]] double pause(Reason reason, double cost = cheap)
    {
        pacing.want(reason, now);
        paintNext(Rest::nothing, cost);
        const double begun = now - cost;
        pacing.want(reason, now);
        return pacing.due().value() - begun;
    }

    bool between = false; // two pieces of a frame
};

bool near(double a, double b) { return std::abs(a - b) < 1e-9; }

} // namespace

class HaloPacingTest : public QObject {
    Q_OBJECT

private slots:
    void nothingWantedIsNothingDue()
    {
        Frames frames;
        QVERIFY(!frames.pacing.due());
        QVERIFY(!frames.pacing.paint()); // somebody else painted
        frames.pacing.want(Reason::change, frames.now);
        QCOMPARE(frames.pacing.due(), frames.now); // the first frame at once
        frames.paintNext();
        QCOMPARE(frames.pacing.state(), State::idle);
        frames.pacing.want(Reason::turn, frames.now);
        frames.pacing.drop();
        QVERIFY(!frames.pacing.due());
    }

    void framesKeepTheirDistance_data()
    {
        QTest::addColumn<Reason>("reason");
        QTest::addColumn<double>("cost");
        QTest::addColumn<double>("pause");
        QTest::newRow("thirty turns a second") << Reason::turn << cheap << 1.0 / 30;
        QTest::newRow("sixty frames of a pulse") << Reason::pulse << cheap << 1.0 / 60;
        QTest::newRow("sixty steps of a drag") << Reason::change << cheap << 1.0 / 60;
        QTest::newRow("most of the time for others") << Reason::change << 0.02 << 0.08;
        QTest::newRow("as long as turns are cheap enough") << Reason::turn << 0.008 << 1.0 / 30;
        QTest::newRow("ten a second in any case")
            << Reason::pulse << 0.5 << 0.5; // and not before it is shown
    }
    void framesKeepTheirDistance()
    {
        QFETCH(Reason, reason);
        QFETCH(double, cost);
        QFETCH(double, pause);
        QVERIFY(near(Frames().pause(reason, cost), pause));
    }

    void whatIsUrgentComesBeforeWhatIsNot()
    {
        Frames frames;
        frames.pacing.want(Reason::turn, frames.now);
        frames.paintNext();
        const double begun = frames.now - cheap;
        frames.pacing.want(Reason::turn, frames.now);
        frames.pacing.want(Reason::change, frames.now);
        frames.pacing.want(Reason::turn, frames.now);
        QVERIFY(near(*frames.pacing.due(), begun + 1.0 / 60));
        frames.paintNext();
        QCOMPARE(frames.pacing.reason(), Reason::change);
    }

    // Nobody asks twice before the first has been painted.
    void oneFrameIsUnderWayAtATime()
    {
        Frames frames;
        frames.pacing.want(Reason::change, frames.now);
        frames.pacing.begin(frames.now);
        frames.pacing.ask();
        frames.pacing.want(Reason::pulse, frames.now);
        QVERIFY(!frames.pacing.due());
        QVERIFY(frames.pacing.paint());
        QVERIFY(!frames.pacing.paint()); // another part of the same picture
        QVERIFY(!frames.pacing.due());
        frames.pacing.show(Rest::nothing, frames.now + cheap);
        QVERIFY(near(*frames.pacing.due(), frames.now + 1.0 / 60));
    }

    void piecesFollowEachOtherAtOnce()
    {
        Frames frames;
        frames.pacing.want(Reason::change, frames.now);
        frames.paintNext(Rest::pieces);
        QCOMPARE(frames.pacing.due(), frames.now);
        frames.pacing.want(Reason::change, frames.now); // a step of the drag between them
        QCOMPARE(frames.pacing.due(), frames.now);
        frames.paintNext(Rest::pieces);
        frames.paintNext();
        // The next frame reckons with what all of them cost.
        QVERIFY(near(*frames.pacing.due(), frames.now - 3 * cheap + 1.0 / 60));
        QCOMPARE(frames.pacing.state(), State::waiting);
    }
};

QTEST_GUILESS_MAIN(HaloPacingTest)
#include "HaloPacingTest.moc"
