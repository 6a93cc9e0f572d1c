#include "halo/HaloView.h"

#include <QImage>
#include <QPainter>
#include <QTest>

namespace {

constexpr QSize screenSize(400, 300);

// The glow on a screen that paints what it is asked to.
struct Screen {
    explicit Screen(QSize pixels = screenSize, double scale = 1)
        : image(pixels, QImage::Format_RGB32)
        , halo(QSizeF(pixels) / scale, scale, [this] { return stillness; })
    {
        image.setDevicePixelRatio(scale);
        image.fill(Qt::black);
        halo.onFrame = [this](const QRegion &area) {
            ++frames;
            lastArea = area;
            if (beforePainting)
                beforePainting();
            paint(area);
        };
    }

    void paint(const QRegion &area)
    {
        QPainter painter(&image);
        painter.setClipRegion(area);
        painter.fillRect(area.boundingRect(), Qt::black);
        halo.draw(painter, area);
    }

    [[nodiscard]] QImage repainted()
    {
        paint(image.rect());
        return image.copy();
    }

    bool stillness = true;
    int frames = 0;
    QRegion lastArea;
    std::function<void()> beforePainting;
    QImage image;
    HaloView halo;
};

// Of the channel and the pixel where it is greatest.
int difference(const QImage &a, const QImage &b)
{
    int greatest = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            for (const int shift : {0, 8, 16})
                greatest = std::max(greatest, std::abs(int(a.pixel(x, y) >> shift & 255U)
                                                       - int(b.pixel(x, y) >> shift & 255U)));
    return greatest;
}

} // namespace

class HaloViewTest : public QObject {
    Q_OBJECT

private slots:
    void smallSelectionsHaveNoGlow()
    {
        Screen screen;
        screen.halo.update(QRectF(10, 10, 2, 100));
        QVERIFY(screen.halo.isHidden());
        screen.halo.update(QRectF(10, 10, 3, 3));
        QVERIFY(!screen.halo.isHidden());
        screen.halo.update(std::nullopt);
        QVERIFY(screen.halo.isHidden());
        QTRY_VERIFY(screen.halo.resting());
        QCOMPARE(screen.image, Screen().image);
        screen.stillness = false;
        screen.halo.pulse(Pulse::strong);
        QVERIFY(!screen.halo.pulsing());
    }

    void aStillGlowAsksOnceForAFrame()
    {
        Screen screen;
        screen.halo.update(QRectF(100, 100, 80, 60));
        screen.halo.update(QRectF(100, 100, 80, 60));
        screen.halo.pulse(Pulse::strong);
        QVERIFY(!screen.halo.pulsing());
        QTRY_VERIFY(screen.halo.resting());
        QCOMPARE(screen.frames, 1);
        screen.halo.update(QRectF(100, 100, 80, 60));
        QVERIFY(screen.halo.resting());
        QCOMPARE(screen.image.pixel(140, 170), qRgb(0, 0, 0)); // y counts upwards
        QVERIFY(qBlue(screen.image.pixel(140, 201)) > 200);
    }

    // Pieces are painted at once, the rest with the next frame.
    void nothingStaleIsLeftBehind()
    {
        Screen screen;
        screen.halo.update(QRectF(20, 20, 200, 200));
        QTRY_VERIFY(screen.halo.resting());
        screen.halo.update(QRectF(40, 40, 200, 200));
        screen.paint(QRect(0, 0, 400, 90));
        screen.halo.update(QRectF(90, 60, 120, 130));
        screen.paint(QRect(0, 200, 400, 100));
        QTRY_VERIFY(screen.halo.resting());
        const QImage shown = screen.image.copy();
        QCOMPARE(shown, screen.repainted());
        Screen fresh;
        fresh.halo.update(QRectF(90, 60, 120, 130));
        QTRY_VERIFY(fresh.halo.resting());
        QCOMPARE(shown, fresh.image);
    }

    // So that no step of a drag waits for all of a large one.
    void aLargeGlowThatChangesComesInPieces()
    {
        const QSize large(3000, 2000);
        Screen screen(large);
        screen.halo.update(QRectF(200, 200, 2600, 1600));
        QTRY_VERIFY(screen.frames > 0); // the first piece
        screen.halo.update(QRectF(250, 150, 2500, 1700));
        QTRY_VERIFY(screen.halo.resting());
        QVERIFY(screen.frames > 3);
        const QImage shown = screen.image.copy();
        QVERIFY(shown == screen.repainted());
        screen.halo.update(std::nullopt);
        QTRY_VERIFY(screen.halo.resting());
        QVERIFY(screen.image == Screen(large).image);
    }

    void framesComeOnlyWhileItMoves()
    {
        Screen screen;
        screen.stillness = false;
        screen.halo.update(QRectF(100, 100, 80, 60));
        QTRY_VERIFY(screen.frames >= 3);
        screen.halo.setPaused(true);
        QTRY_VERIFY(screen.halo.resting());
        const QImage paused = screen.image.copy();
        const int frames = screen.frames;
        screen.halo.setPaused(false);
        QTRY_VERIFY(screen.frames >= frames + 3);
        QVERIFY(screen.image != paused);
        screen.stillness = true; // chosen meanwhile
        QTRY_VERIFY(screen.halo.resting());
        screen.halo.setPaused(true);
        screen.halo.setPaused(false);
        QVERIFY(screen.halo.resting());
        screen.stillness = false;
        screen.halo.update(QRectF(100, 100, 90, 60));
        QTRY_VERIFY(screen.frames >= frames + 6);
        screen.halo.update(std::nullopt);
        QTRY_VERIFY(screen.halo.resting());
    }

    // Faint parts are repainted seldom, and with the rest as soon as it stands.
    void aTurningGlowIsNeverVisiblyOld()
    {
        Screen screen;
        screen.stillness = false;
        screen.halo.update(QRectF(150, 110, 100, 80));
        for (int frames = 0; frames < 20; frames = screen.frames) {
            QTRY_VERIFY(screen.frames > frames);
            const QImage shown = screen.image.copy();
            QVERIFY(difference(shown, screen.repainted()) <= 2);
            screen.image = shown;
        }
        const auto seldom = [&] { return screen.lastArea.boundingRect().width() < 100 + 2 * 15; };
        screen.beforePainting = [&] {
            if (seldom())
                screen.halo.setPaused(true);
        };
        QTRY_VERIFY(screen.halo.paused());
        QTRY_VERIFY(screen.halo.resting());
        const QImage paused = screen.image.copy();
        QCOMPARE(paused, screen.repainted());
    }

    // So that nobody has to paint beneath it.
    void aGlowWithAGroundCoversWhatWasThere_data()
    {
        QTest::addColumn<double>("scale");
        for (const double scale : {1.0, 1.25, 2.0})
            QTest::addRow("%g", scale) << scale;
    }
    void aGlowWithAGroundCoversWhatWasThere()
    {
        QFETCH(double, scale);
        const QSize pixels = (QSizeF(screenSize) * scale).toSize();
        QImage ground(pixels, QImage::Format_RGB32);
        ground.fill(qRgb(40, 90, 20));
        Screen screen(pixels, scale);
        screen.stillness = false;
        screen.halo.setGround([&](const QRect &part) { return ground.copy(part); });
        screen.halo.update(QRectF(150.4, 110, 100, 80));
        QTRY_VERIFY(!screen.halo.covered().isEmpty()); // as soon as it stands
        screen.halo.setPaused(true);
        QTRY_VERIFY(screen.halo.resting());
        const QRegion covered = screen.halo.covered();
        QVERIFY(covered.boundingRect().width() >= 100 + 2 * 42 && !covered.contains(QPoint(200, 150)));
        const auto painted = [&](QRgb beneath) {
            QImage image(pixels, QImage::Format_RGB32);
            image.setDevicePixelRatio(scale);
            image.fill(beneath);
            QPainter painter(&image);
            painter.setClipRegion(covered);
            screen.halo.draw(painter, covered);
            return image;
        };
        QImage beside = painted(qRgb(255, 0, 0));
        screen.halo.setGround({}); // blends from now on
        QImage blended = painted(qRgb(40, 90, 20));
        for (QImage *image : {&beside, &blended})
            for (const QRect &rect : QRegion(QRect({}, screenSize)) - covered)
                QPainter(image).fillRect(rect, Qt::black);
        QVERIFY(difference(beside, blended) <= 1);
    }

    void aGlowThatHasMovedIsLikeOneMadeThere_data() { aGlowWithAGroundCoversWhatWasThere_data(); }
    void aGlowThatHasMovedIsLikeOneMadeThere()
    {
        QFETCH(double, scale);
        const QSize pixels = (QSizeF(screenSize) * scale).toSize();
        Screen moved(pixels, scale);
        QRectF rect(150.4, 110, 100, 80);
        moved.halo.update(rect);
        QTRY_VERIFY(moved.halo.resting());
        // By whole pixels, in from beyond the screen, and by a part of a pixel.
        for (const QPointF way : {QPointF(4, -12), QPointF(-150, 60), QPointF(160, 4), QPointF(0.3, 0.1)}) {
            rect.translate(way);
            moved.halo.update(rect);
            QTRY_VERIFY(moved.halo.resting());
            Screen made(pixels, scale);
            made.halo.update(rect);
            QTRY_VERIFY(made.halo.resting());
            QVERIFY(difference(moved.image, made.image) <= 1);
            QCOMPARE(moved.image, moved.repainted());
        }
    }

    // A moment elsewhere costs it neither its ground nor its hole.
    void aGlowThatComesBackCoversWhatItDid()
    {
        QImage ground(screenSize, QImage::Format_RGB32);
        ground.fill(Qt::gray);
        Screen screen;
        screen.stillness = false;
        screen.halo.setGround([&](const QRect &part) { return ground.copy(part); });
        const QRectF small(150, 110, 60, 50);
        const QRectF large(150, 110, 100, 80);
        screen.halo.update(large);
        QTRY_VERIFY(!screen.halo.covered().isEmpty());
        const QRegion before = screen.halo.covered();
        for (const QRectF &first : {large, small}) {
            screen.halo.update(first);
            QTRY_VERIFY(!screen.halo.covered().isEmpty());
            for (const QRectF &next : {large, large.translated(1, 0), large})
                screen.halo.update(next);
            QTRY_COMPARE(screen.halo.covered(), before);
        }
    }

    void aPulseLeavesNothingBehind()
    {
        Screen screen;
        screen.stillness = false;
        screen.halo.update(QRectF(150, 110, 100, 80));
        screen.halo.pulse(Pulse::strong);
        QRect widest;
        while (screen.halo.pulsing()) {
            QTest::qWait(5);
            widest |= screen.lastArea.boundingRect();
        }
        QVERIFY(widest.width() > 100 + 2 * 60);
        screen.stillness = true;
        QTRY_VERIFY(screen.halo.resting());
        const QImage shown = screen.image.copy();
        QCOMPARE(shown, screen.repainted());
        QCOMPARE(shown.pixel(90, 150), qRgb(0, 0, 0)); // beyond the glow at rest
    }
};

QTEST_GUILESS_MAIN(HaloViewTest)
#include "HaloViewTest.moc"
