#include "support/Editor.h"

#include <QRandomGenerator>
#include <QtMath>

// What the overlay shows, and that it repaints all that it has to.
class OverlayPaintTest : public QObject {
    Q_OBJECT

private slots:
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

    void theEyedropperKeepsTheBarAway()
    {
        Editor editor;
        editor.mouse->drag({100, 100}, {700, 500});
        const auto *bar = editor.view->findChild<Bar *>();
        editor.view->toggleTool(Tool::pencil);
        editor.mouse->press({300, 300});
        QTest::keyClick(editor.view.get(), Qt::Key_I);
        editor.mouse->release({300, 300}); // the end of the stroke that was under way
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
            return editor.shown().copy(ViewSpace(editor.shot.pointSize).toPixels({190, 190, 120, 120}, 1));
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
