#include "support/Editor.h"
#include "support/TempHome.h"

#include "base/Defaults.h"

#include "overlay/canvas/MarksLayer.h"
#include "overlay/canvas/Rendering.h"

#include <QClipboard>
#include <QMimeData>
#include <QRandomGenerator>
#include <QtMath>

#include <malloc.h>

// What the overlay shows, and that it repaints all that it has to.
class OverlayPaintTest : public QObject {
    Q_OBJECT

    TempHome home;

private slots:
    void initTestCase() { Defaults::setValue(Defaults::shapeTipKey, 99); } // the tip would lie over strokes

    // Every pixel that a step leaves stale shows up here.
    void whatIsRepaintedIsAllThatChanged_data() { scales(); }
    void whatIsRepaintedIsAllThatChanged()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        QCOMPARE(editor.stale(), 0);
        QRandomGenerator random(7);
        const double scale = editor.shot.scale;
        const auto within = [&](const QRectF &area) {
            return area.topLeft()
                   + QPointF(random.bounded(int(area.width() * scale)),
                             random.bounded(int(area.height() * scale)))
                         / scale;
        };
        const auto dragAbout = [&](const QRectF &area) {
            editor.mouse->press(within(area));
            for (int step = 0; step < 3; ++step) {
                editor.mouse->move(within(area));
                QCOMPARE(editor.stale(), 0);
            }
            editor.mouse->release(within(area));
            QCOMPARE(editor.stale(), 0);
        };
        for (int round = 0; round < 6; ++round)
            dragAbout({QPointF(0, 0), editor.shot.pointSize});
        editor.mouse->drag({100, 100}, {700, 500});
        for (const Tool tool : allTools) {
            editor.view->toggleTool(tool);
            dragAbout({120, 120, 560, 360});
        }
        QTest::keyClicks(editor.view->focusWidget() ? editor.view->focusWidget() : editor.view.get(), "p");
        dragAbout({300, 200, 100, 100});
        while (!editor.view->state().annotations.empty()) {
            editor.view->undo();
            QCOMPARE(editor.stale(), 0);
        }
    }

    // Their outlines turn back at the ends.
    void flatShapesStayWithinTheirBounds_data() { scales(); }
    void flatShapesStayWithinTheirBounds()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        editor.mouse->drag({100, 100}, {700, 500});
        editor.view->setLineWidth(6);
        for (const Tool tool : {Tool::rectangle, Tool::ellipse}) {
            editor.view->toggleTool(tool);
            const QPointF from(300.4, 250.7);
            editor.mouse->press(from);
            for (const QPointF way : {QPointF(0, 40), QPointF(0, 20), QPointF(0.3, -30), QPointF(50, 0),
                                      QPointF(20, 0), QPointF(90, 60)}) {
                editor.mouse->move(from + way);
                QCOMPARE(editor.stale(), 0);
            }
            editor.mouse->release(from + QPointF(90, 60));
        }
    }

    void theSampleOfTheWidthGoesWithTheBar()
    {
        Editor editor;
        const auto turnWheel = [&] {
            editor.mouse->drag({100, 100}, {700, 500});
            editor.turnWheel({900, 100}, 120);
            QCOMPARE(editor.stale(), 0);
        };
        turnWheel();
        QTest::keyClick(editor.view.get(), Qt::Key_I);
        QCOMPARE(editor.stale(), 0);
        QTest::keyClick(editor.view.get(), Qt::Key_Escape);
        QCOMPARE(editor.stale(), 0);
        turnWheel();
        editor.mouse->press({800, 600});
        QCOMPARE(editor.stale(), 0);
        editor.mouse->release({800, 600});
        turnWheel();
        editor.view->discardSelection();
        QCOMPARE(editor.stale(), 0);
    }

    void whatIsCopiedIsWhatIsSeen_data() { scales(); }
    void whatIsCopiedIsWhatIsSeen()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        editor.mouse->drag({100, 100}, {500, 400});
        const double pixel = 1 / editor.shot.scale;
        QPointF at(130, 130);
        for (const Tool tool : {Tool::pencil, Tool::marker, Tool::line, Tool::arrow, Tool::rectangle,
                                Tool::ellipse, Tool::pixelate}) {
            editor.draw(tool, at, at + QPointF(150 + pixel, 90));
            at += QPointF(25 + pixel, 20 - pixel);
        }
        QCOMPARE(editor.view->state().annotations.size(), 7U);
        const QImage copied = *editor.view->renderSelection();
        const QImage seen = editor.repainted();
        const QRect region(
            QPointF(100 * editor.shot.scale, (editor.shot.pointSize.height() - 400) * editor.shot.scale)
                .toPoint(),
            copied.size());
        const int chrome = qCeil(20 * editor.shot.scale); // the handles reach that far inside
        const QRect inner = QRect(QPoint(0, 0), copied.size()).adjusted(chrome, chrome, -chrome, -chrome);
        QCOMPARE(differing(copied.copy(inner), seen.copy(inner.translated(region.topLeft()))), 0);
        QVERIFY(differing(copied, editor.shot.image.copy(region)) > 1000);
    }

    void marksTravelWithTheSelection_data() { scales(); }
    void marksTravelWithTheSelection()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        editor.mouse->drag({100, 100}, {500, 400});
        QPointF at(130, 130);
        for (const Tool tool :
             {Tool::pixelate, Tool::pencil, Tool::marker, Tool::arrow, Tool::ellipse, Tool::pixelate}) {
            editor.draw(tool, at, at + QPointF(60, 45));
            at += QPointF(50, 40);
        }
        const double pixel = 1 / editor.shot.scale;
        editor.mouse->press({300, 360});
        for (const QPointF to :
             {QPointF(300 + pixel, 360), QPointF(420, 420 - pixel), QPointF(9, 20), QPointF(512, 333)}) {
            editor.mouse->move(to);
            QCOMPARE(editor.stale(), 0);
        }
        editor.mouse->release({512, 333});
        editor.view->undo(); // a mosaic
        editor.view->undo();
        QCOMPARE(editor.stale(), 0);
        const ViewSpace space(editor.shot.pointSize, editor.shot.scale);
        MarksLayer anew(space);
        QVERIFY(!anew.follow(editor.view->state().drawOrder()).all().isEmpty());
        const QImage copied = *editor.view->renderSelection();
        // Soft edges may come out differently in a few places where they are cut into tiles.
        QVERIFY(differing(copied, *Rendering::renderSelection(editor.view->state(), editor.shot, anew)) < 20);
        MarksLayer none(space);
        QVERIFY(differing(copied, *Rendering::renderSelection(editor.view->state(), editor.shot, none))
                > 1000);
    }

    // What was put together while the hand drew is what drawing all of it gives.
    void aLongStrokeIsTheSameHoweverItCameAbout_data()
    {
        QTest::addColumn<Tool>("tool");
        QTest::newRow("pencil") << Tool::pencil;
        QTest::newRow("marker") << Tool::marker;
    }
    void aLongStrokeIsTheSameHoweverItCameAbout()
    {
        QFETCH(Tool, tool);
        Editor editor;
        editor.mouse->drag({100, 100}, {700, 500});
        editor.draw(Tool::rectangle, {200, 200}, {600, 400});
        editor.view->toggleTool(tool);
        editor.mouse->press({400, 300});
        for (int i = 0; i < 1000; ++i)
            editor.mouse->move(QPointF(400, 300)
                               + QPointF(250 * std::sin(i * 0.07), 150 * std::sin(i * 0.05)));
        const QImage inHand = editor.shown();
        editor.mouse->release({400, 300});
        QCOMPARE(differing(editor.withoutBar(inHand), editor.withoutBar(editor.shown())), 0);
        const ViewSpace space(editor.shot.pointSize, editor.shot.scale);
        MarksLayer anew(space);
        QVERIFY(!anew.follow(editor.view->state().drawOrder()).all().isEmpty());
        const auto copied = editor.view->renderSelection();
        QCOMPARE(*copied, *Rendering::renderSelection(editor.view->state(), editor.shot, anew));
        editor.view->toggleTool(tool);
        editor.draw(Tool::line, {180, 180}, {600, 420}); // on tiles that the stroke alone was on, and others
        QCOMPARE(editor.stale(), 0);
        editor.mouse->drag({120, 120}, {133, 127});
        QCOMPARE(editor.stale(), 0);
        editor.view->undo();
        editor.view->undo();
        QCOMPARE(editor.stale(), 0);
    }

    // Mosaics, tiles of marks, copied pictures: all of a capture is on
    // the heap, and all of it goes.
    void nothingOfACaptureStaysAfterItsEnd()
    {
        const auto capture = [] {
            Editor editor("A");
            editor.mouse->drag({100, 100}, {1800, 1000});
            editor.view->toggleTool(Tool::pixelate);
            editor.mouse->press({110, 110});
            for (int i = 0; i < 40; ++i) {
                editor.mouse->move({500.0 + 30 * i, 300.0 + 15 * i});
                QTest::qWait(0);
            }
            editor.mouse->release({1700, 900});
            editor.draw(Tool::marker, {120, 900}, {1700, 120});
            QVERIFY(editor.stale() == 0);
        };
        const auto heap = [] {
            const auto info = mallinfo2();
            return info.uordblks + info.hblkhd;
        };
        capture(); // fonts, cursors and the like are made once
        const auto before = heap();
        capture();
        QVERIFY2(heap() < before + 200'000, qPrintable(QString::number(heap() - before)));
    }

    void theSampleFollowsTheToolWhileItShows()
    {
        const auto shown = [](bool toolFirst) {
            Editor editor;
            editor.mouse->drag({100, 100}, {700, 500});
            if (toolFirst)
                editor.view->toggleTool(Tool::marker);
            for (int i = 0; i < 8; ++i)
                editor.turnWheel({1000, 300}, 120);
            if (!toolFirst)
                editor.view->toggleTool(Tool::marker);
            return editor.withoutBar(editor.shown());
        };
        QCOMPARE(differing(shown(true), shown(false)), 0);
    }

    void theSelectedPixelsAreTheScreensOwn_data() { scales(); }
    void theSelectedPixelsAreTheScreensOwn()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        editor.mouse->drag({200, 200}, {400, 400});
        const QImage image = editor.repainted();
        const auto at = [&](QPointF p) {
            return QPoint(qRound(p.x() * editor.shot.scale),
                          qRound((editor.shot.pointSize.height() - p.y()) * editor.shot.scale));
        };
        const QRect inside(at({220, 380}), at({380, 280})); // clear of the handles and of the bar's shadow
        for (int y = inside.top(); y < inside.bottom(); ++y)
            for (int x = inside.left(); x < inside.right(); ++x)
                QVERIFY(image.pixel(x, y) == editor.shot.image.pixel(x, y));
        const QPoint outside = at({500, 500});
        const QColor whole = editor.shot.image.pixelColor(outside);
        QVERIFY(alike(image.pixel(outside), whole.darker(182).rgb())); // to 55 %
    }

    void theEyedropperTakesAColourOffTheFrozenScreen_data() { scales(); }
    void theEyedropperTakesAColourOffTheFrozenScreen()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        editor.mouse->drag({100, 100}, {300, 300});
        editor.draw(Tool::rectangle, {150, 150}, {250, 250});
        const double pixel = 1 / editor.shot.scale;
        QTest::keyClick(editor.view.get(), Qt::Key_I);
        QCOMPARE(editor.view->cursor().shape(), Qt::BlankCursor);
        for (const QPointF to : {QPointF(0, pixel), QPointF(150, 200), QPointF(400, 20)}) {
            editor.mouse->hover(to);
            QCOMPARE(editor.stale(), 0);
        }
        const QPointF onTheMark(150 + pixel, 200);
        editor.mouse->drag(onTheMark, {600, 300});
        QCOMPARE(editor.selection(), QRectF(100, 100, 200, 200));
        QCOMPARE(editor.stale(), 0);
        const QPoint at(qFloor(onTheMark.x() * editor.shot.scale),
                        qFloor((editor.shot.pointSize.height() - 200) * editor.shot.scale));
        QCOMPARE(editor.view->state().color, editor.shot.image.pixelColor(at)); // not the mark's
    }

    void escapeLeavesTheEyedropperFirst()
    {
        Editor editor;
        QTest::keyClick(editor.view.get(), Qt::Key_I); // nothing without a selection
        QVERIFY(editor.view->cursor().shape() != Qt::BlankCursor);
        editor.mouse->drag({100, 100}, {300, 300});
        const QColor before = editor.view->state().color;
        QTest::keyClick(editor.view.get(), Qt::Key_I);
        QTest::keyClick(editor.view.get(), Qt::Key_Escape);
        QCOMPARE(editor.view->state().color, before);
        QVERIFY(editor.view->cursor().shape() != Qt::BlankCursor);
        QCOMPARE(editor.session.finished, 0);
        QTest::keyClick(editor.view.get(), Qt::Key_Escape);
        QCOMPARE(editor.session.finished, 1);
    }

    void theColourUnderTheLoupeCanBeCopiedAsText()
    {
        Editor editor;
        editor.mouse->drag({100, 100}, {300, 300});
        QTest::keyClick(editor.view.get(), Qt::Key_I);
        editor.mouse->hover({200.5, 200.5});
        QTest::keyClick(editor.view.get(), Qt::Key_C, Qt::ControlModifier);
        const QColor there = editor.shot.image.pixelColor(200, int(editor.shot.pointSize.height()) - 201);
        QCOMPARE(QGuiApplication::clipboard()->text(), there.name().toUpper());
        QVERIFY(editor.view->cursor().shape() != Qt::BlankCursor);
        QCOMPARE(editor.session.finished, 0);
        QTest::keyClick(editor.view.get(), Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QGuiApplication::clipboard()->mimeData()->hasFormat("image/png"));
    }

    void theEyedropperKeepsTheBarAway()
    {
        Editor editor;
        editor.mouse->drag({100, 100}, {700, 500});
        const auto *bar = editor.view->findChild<Bar *>();
        editor.view->toggleTool(Tool::text);
        editor.mouse->drag({300, 300}, {300, 300});
        QTest::keyClicks(editor.view->focusWidget(), "abc");
        editor.view->startPicking();
        QVERIFY(bar->isHidden());
        QTest::keyClick(editor.view.get(), Qt::Key_Escape);
        editor.view->toggleTool(Tool::pencil);
        editor.mouse->press({300, 300});
        QTest::keyClick(editor.view.get(), Qt::Key_I);
        QCOMPARE(editor.view->state().annotations.size(), 2U); // the stroke that was under way
        editor.mouse->release({300, 300});
        QVERIFY(bar->isHidden());
        QTest::keyClick(editor.view.get(), Qt::Key_A, Qt::ControlModifier);
        QVERIFY(bar->isHidden());
        QCOMPARE(editor.stale(), 0);
        QTest::keyClick(editor.view.get(), Qt::Key_Escape);
        QVERIFY(!bar->isHidden());
        QCOMPARE(editor.stale(), 0);
    }

    void theWheelShowsASampleOfTheWidth_data() { scales(); }
    void theWheelShowsASampleOfTheWidth()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        editor.turnWheel({50, 50}, 120); // nothing without a selection
        QCOMPARE(editor.view->state().lineWidth, 3.0);
        editor.mouse->drag({100, 100}, {300, 300});
        // The right edge of the screen, where the sample shows and the bar does not.
        const auto edge = [&] {
            const QImage all = editor.repainted();
            return all.copy(all.width() - 300, 0, 300, all.height());
        };
        const QImage bare = edge();
        for (const Tool tool : allTools) {
            editor.view->toggleTool(tool);
            editor.turnWheel({editor.shot.pointSize.width() - 10, 30}, 120);
            QCOMPARE(editor.stale(), 0);
            QVERIFY(differing(bare, edge()) > 5000);
        }
        QCOMPARE(editor.view->state().lineWidth, 11.0);
        QTRY_COMPARE(differing(bare, edge()), 0);
    }

    // What lies under the mark in hand is kept while it is drawn.
    void undoingUnderTheMarkInHandShowsTheScreenAgain()
    {
        Editor editor;
        editor.mouse->drag({100, 100}, {700, 500});
        const auto within = [&] {
            return editor.shown().copy(ViewSpace(editor.shot.pointSize).toPixels({190, 190, 120, 120}));
        };
        editor.view->toggleTool(Tool::rectangle);
        const QImage bare = within();
        editor.mouse->drag({200, 200}, {300, 300});
        editor.mouse->press({150, 150});
        editor.mouse->move({250, 250}); // across the finished one
        editor.mouse->move({400, 400});
        QVERIFY(differing(bare, within()) > 500);
        editor.view->undo();
        QCOMPARE(differing(bare, within()), 0);
    }
};

QTEST_MAIN(OverlayPaintTest)
#include "OverlayPaintTest.moc"
