#include "overlay/OverlayView.h"

#include "base/Rect.h"

#include "fakes/FakeDesktop.h"
#include "fakes/RecordingSession.h"
#include "support/Mouse.h"
#include "support/Pictures.h"
#include "support/TempHome.h"

#include <QBackingStore>
#include <QClipboard>
#include <QMimeData>
#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

namespace {

// The editor on one of the screens of the offscreen platform, with a mouse.
struct Editor {
    explicit Editor(const QString &screenName = "B")
    {
        for (QScreen *candidate : QGuiApplication::screens())
            if (candidate->name() == screenName)
                screen = candidate;
        shot = patternShot(screen->size(), screen->devicePixelRatio(), screen);
        view = std::make_unique<OverlayView>(shot, session, desktop);
        view->onPulse = [this](Pulse pulse) { pulses.append(pulse); };
        view->setScreen(screen);
        view->setGeometry(screen->geometry());
        view->show();
        mouse.emplace(*view, shot.pointSize.height());
    }

    [[nodiscard]] std::optional<QRectF> selection() const { return view->state().selection; }

    // The screen as it is, and as a whole repaint would make it.
    [[nodiscard]] QImage shown() const
    {
        QTest::qWait(0);
        const auto *pixels = dynamic_cast<QImage *>(view->backingStore()->paintDevice());
        return pixels ? pixels->convertToFormat(QImage::Format_RGB32) : QImage();
    }
    [[nodiscard]] QImage repainted() const
    {
        QImage image(shot.image.size(), QImage::Format_RGB32);
        image.setDevicePixelRatio(shot.scale);
        view->render(&image);
        return image;
    }

    QScreen *screen = nullptr;
    ScreenShot shot;
    RecordingSession session;
    FakeDesktop desktop;
    QList<Pulse> pulses;
    std::unique_ptr<OverlayView> view;
    std::optional<Mouse> mouse;
};

AnnotationPtr mark(QList<QPointF> points)
{
    return std::make_shared<Annotation>(Tool::line, Qt::red, 3, std::move(points));
}

// The toolkit rounds a translucent fill in more than one way.
bool alike(QRgb a, QRgb b)
{
    const auto near = [](int x, int y) { return std::abs(x - y) <= 2; };
    return near(qRed(a), qRed(b)) && near(qGreen(a), qGreen(b)) && near(qBlue(a), qBlue(b));
}

int differing(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return -1;
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += !alike(a.pixel(x, y), b.pixel(x, y));
    return count;
}

} // namespace

class OverlayViewTest : public QObject {
    Q_OBJECT

    TempHome home;

    static void scales()
    {
        QTest::addColumn<QString>("screen");
        QTest::newRow("1x") << "B";
        QTest::newRow("1.25x") << "C";
        QTest::newRow("2x") << "A";
    }

private slots:
    void aDragSelects_data() { scales(); }
    void aDragSelects()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        const double pixel = 1 / editor.shot.scale;
        const QPointF from(100 + pixel, 300);
        const QPointF to(40, 100 + pixel); // to the lower left
        editor.mouse->drag(from, to);
        QCOMPARE(editor.selection(), QRectF(to, from));
        QCOMPARE(editor.session.started, 1);
        QCOMPARE(editor.pulses, QList{Pulse::gentle});
        const auto picture = editor.view->renderSelection();
        QCOMPARE(picture->size(),
                 (QSizeF(from.x() - to.x(), from.y() - to.y()) * editor.shot.scale).toSize());
    }

    void aClickLeavesNoSelection()
    {
        Editor editor;
        editor.mouse->drag({100, 100}, {100, 100});
        QVERIFY(!editor.selection());
        editor.mouse->drag({100, 100}, {102, 150});
        QVERIFY(!editor.selection());
        QVERIFY(editor.pulses.isEmpty());
        editor.mouse->drag({100, 100}, {103, 103});
        QCOMPARE(editor.selection(), QRectF(100, 100, 3, 3));
    }

    void theSelectionMovesAndStopsAtTheEdgeWithItsMarks()
    {
        Editor editor;
        editor.mouse->drag({10, 10}, {110, 110});
        editor.view->addMark(mark({{20, 20}, {30, 30}}));
        editor.view->state().annotations.front()->original = QList<QPointF>{{25, 25}};
        editor.mouse->press({50, 50});
        QCOMPARE(editor.view->cursor().shape(), Qt::ClosedHandCursor);
        editor.mouse->move({20, 60}); // 30 points to the left, but the edge is 10 away
        editor.mouse->release({20, 60});
        QCOMPARE(editor.selection(), QRectF(0, 20, 100, 100));
        const auto &moved = *editor.view->state().annotations.front();
        QCOMPARE(moved.points, (QList<QPointF>{{10, 30}, {20, 40}}));
        QCOMPARE(moved.original, (QList<QPointF>{{15, 35}}));
        QCOMPARE(editor.view->cursor().shape(), Qt::OpenHandCursor);
    }

    void aHandleTurnsTheSelectionOver()
    {
        Editor editor;
        editor.mouse->drag({100, 100}, {200, 200});
        editor.mouse->drag({203, 204}, {40, 60}); // the top right handle, beyond the bottom left corner
        QCOMPARE(editor.selection(), QRectF(40, 60, 60, 40));
        QVERIFY(editor.view->state().annotations.empty());
        QCOMPARE(editor.pulses.size(), 1);
    }

    void draggingStopsAtTheScreensEdge()
    {
        Editor editor;
        editor.mouse->drag({1500, 800}, {5000, -70});
        QCOMPARE(editor.selection(), QRectF(1500, 0, 100, 800));
    }

    void aPressOutsideStartsAnewUnlessMarksWouldBeLost()
    {
        Editor editor;
        editor.mouse->drag({100, 100}, {200, 200});
        editor.mouse->drag({400, 400}, {500, 500});
        QCOMPARE(editor.selection(), QRectF(400, 400, 100, 100));
        editor.view->addMark(mark({{420, 420}, {430, 430}}));
        editor.mouse->drag({100, 100}, {200, 200});
        QCOMPARE(editor.selection(), QRectF(400, 400, 100, 100));
        QCOMPARE(editor.view->state().annotations.size(), 1U);
        QCOMPARE(editor.desktop.beeps, 1);
        editor.view->discardSelection();
        QVERIFY(!editor.selection() && editor.view->state().annotations.empty());
    }

    void otherButtonsDoNothing()
    {
        Editor editor;
        QTest::mouseClick(editor.view.get(), Qt::RightButton, {}, {300, 300});
        QVERIFY(!editor.selection());
    }

    // Every pixel that a step leaves stale shows up here.
    void whatIsRepaintedIsAllThatChanged_data() { scales(); }
    void whatIsRepaintedIsAllThatChanged()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        QCOMPARE(differing(editor.shown(), editor.repainted()), 0);
        QRandomGenerator random(7);
        const QSize size = editor.screen->size();
        const double scale = editor.shot.scale;
        const auto anywhere = [&] {
            return QPointF(random.bounded(size.width() * int(scale)),
                           random.bounded(size.height() * int(scale)))
                   / scale;
        };
        for (int round = 0; round < 12; ++round) {
            editor.mouse->press(anywhere());
            for (int step = 0; step < 3; ++step) {
                editor.mouse->move(anywhere());
                QCOMPARE(differing(editor.shown(), editor.repainted()), 0);
            }
            editor.mouse->release(anywhere());
            QCOMPARE(differing(editor.shown(), editor.repainted()), 0);
        }
    }

    void theSelectedPixelsAreTheScreensOwn_data() { scales(); }
    void theSelectedPixelsAreTheScreensOwn()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        editor.mouse->drag({200, 200}, {400, 400});
        const QImage image = editor.repainted();
        const auto at = [&](QPointF p) {
            return QPoint(qRound(p.x() * editor.shot.scale),
                          qRound((editor.shot.pointSize.height() - p.y()) * editor.shot.scale));
        };
        const QRect inside(at({220, 380}), at({380, 220}));
        QImage selected = image.copy(inside);
        selected.setDevicePixelRatio(1);
        QCOMPARE(selected, editor.shot.image.copy(inside));
        const QPoint outside = at({500, 100});
        const QColor whole = editor.shot.image.pixelColor(outside);
        QVERIFY(alike(image.pixel(outside), whole.darker(182).rgb())); // to 55 %
    }

    void keysLeaveCopyAndSelectAll()
    {
        Editor editor;
        QTest::keyClick(editor.view.get(), Qt::Key_Return); // nothing to copy
        QCOMPARE(editor.session.finished, 0);
        QTest::keyClick(editor.view.get(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(editor.selection(), QRectF(QPointF(0, 0), editor.shot.pointSize));
        QCOMPARE(editor.session.started, 1);
        QTest::keyClick(editor.view.get(), Qt::Key_Escape);
        QCOMPARE(editor.session.finished, 1);
    }

    void copyingShowsItAndEndsTheCapture()
    {
        Editor editor("A");
        editor.mouse->drag({100, 100}, {150, 125});
        QTest::keyClick(editor.view.get(), Qt::Key_C, Qt::MetaModifier);
        const QMimeData &data = *QGuiApplication::clipboard()->mimeData();
        QCOMPARE(data.formats(), (QStringList{"image/png", "image/tiff"}));
        const QImage copied = QImage::fromData(data.data("image/png"), "PNG");
        QCOMPARE(copied.dotsPerMeterX(), 5669);
        QCOMPARE(differing(copied, editor.shot.image.copy(200, 950, 100, 50)), 0);
        const QByteArray size = QByteArray::number(data.data("image/png").size());
        QVERIFY(home.log().endsWith("copiado 100x50 png=" + size + " -> OK\n"));
        QCOMPARE(editor.desktop.pops, 1);
        QCOMPARE(editor.pulses, (QList{Pulse::gentle, Pulse::strong}));
        QCOMPARE(editor.session.finished, 0); // the feedback is to be seen first
        QTRY_COMPARE(editor.session.finished, 1);
    }

    void withoutASelectionSavingAndPrintingBeep()
    {
        Editor editor;
        QTest::keyClick(editor.view.get(), Qt::Key_S, Qt::ControlModifier);
        QTest::keyClick(editor.view.get(), Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(editor.desktop.beeps, 2);
        QCOMPARE(editor.session.finished, 0);
    }
};

QTEST_MAIN(OverlayViewTest)
#include "OverlayViewTest.moc"
