#include "support/Editor.h"

#include "base/Rect.h"

#include "support/TempHome.h"

#include <QClipboard>
#include <QMimeData>

class OverlayViewTest : public QObject {
    Q_OBJECT

    TempHome home;

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
        editor.mouse->drag({100, 100}, {103, 103});
        QCOMPARE(editor.selection(), QRectF(100, 100, 3, 3));
    }

    void theSelectionMovesAndStopsAtTheEdgeWithItsMarks()
    {
        Editor editor;
        editor.mouse->drag({10, 10}, {110, 110});
        editor.draw(Tool::line, {20, 30}, {30, 40});
        editor.mouse->press({50, 50});
        QCOMPARE(editor.view->cursor().shape(), Qt::ClosedHandCursor);
        editor.mouse->move({20, 60}); // 30 points to the left, but the edge is 10 away
        editor.mouse->release({20, 60});
        QCOMPARE(editor.selection(), QRectF(0, 20, 100, 100));
        const auto &moved = *editor.view->state().annotations.front();
        QCOMPARE(moved.rectFromPoints(), QRectF(10, 40, 10, 10));
        QCOMPARE(editor.view->cursor().shape(), Qt::OpenHandCursor);
    }

    // The button was let go while somebody else had the pointer.
    void aReleaseThatNeverComesEndsTheGesture()
    {
        Editor editor;
        editor.mouse->press({100, 100});
        editor.mouse->move({300, 300});
        editor.mouse->hover({400, 400});
        QCOMPARE(editor.selection(), QRectF(100, 100, 200, 200));
        editor.view->toggleTool(Tool::line);
        editor.mouse->press({150, 150});
        editor.mouse->move({200, 200});
        editor.mouse->hover({250, 250});
        QCOMPARE(editor.view->state().annotations.front()->rectFromPoints(), QRectF(150, 150, 50, 50));
        QVERIFY(!editor.view->halo().paused());
        editor.mouse->release({260, 260});
        QCOMPARE(editor.view->state().annotations.size(), 1U);
    }

    void onlyUndoGoesOnWhileItsKeyIsHeld()
    {
        Editor editor;
        editor.mouse->drag({100, 100}, {300, 300});
        for (int i = 0; i < 4; ++i)
            editor.draw(Tool::line, {150, 150}, {200, 200});
        const auto repeat = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
            QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(), true);
            QCoreApplication::sendEvent(editor.view.get(), &event);
        };
        QTest::keyClick(editor.view.get(), Qt::Key_Z, Qt::ControlModifier);
        repeat(Qt::Key_Z, Qt::ControlModifier);
        repeat(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor.view->state().annotations.size(), 1U);
        repeat(Qt::Key_E, {});
        repeat(Qt::Key_Escape, {});
        QVERIFY(!editor.view->state().tool);
        QCOMPARE(editor.session.finished, 0);
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
        editor.draw(Tool::line, {420, 420}, {430, 430});
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

    void copyingShowsItAndEndsTheCapture()
    {
        Editor editor("A");
        editor.mouse->drag({100, 100}, {150, 125});
        editor.desktop.stillness = false;
        QTest::keyClick(editor.view.get(), Qt::Key_C, Qt::MetaModifier);
        const QMimeData &data = *QGuiApplication::clipboard()->mimeData();
        QCOMPARE(data.formats(), (QStringList{"image/png", "image/tiff"}));
        const QImage copied = QImage::fromData(data.data("image/png"), "PNG");
        QCOMPARE(copied.dotsPerMeterX(), 5669);
        QCOMPARE(differing(copied, editor.shot.image.copy(200, 950, 100, 50)), 0);
        const QByteArray size = QByteArray::number(data.data("image/png").size());
        QVERIFY(home.log().endsWith("copiado 100x50 png=" + size + " -> OK\n"));
        QCOMPARE(editor.desktop.pops, 1);
        QVERIFY(editor.view->halo().pulsing());
        QCOMPARE(editor.session.finished, 0); // the feedback is to be seen first
        QTRY_COMPARE(editor.session.finished, 1);
    }

    void theGlowFollowsTheGestures()
    {
        Editor editor;
        editor.desktop.stillness = false;
        const HaloView &halo = editor.view->halo();
        editor.mouse->drag({100, 100}, {102, 150});
        QVERIFY(halo.isHidden());
        editor.mouse->press({100, 100});
        editor.mouse->move({300, 300});
        QVERIFY(!halo.isHidden());
        QVERIFY(!halo.pulsing());
        editor.mouse->release({300, 300});
        QVERIFY(halo.pulsing());
        editor.view->toggleTool(Tool::line);
        for (const bool stolen : {false, true}) { // by another screen
            editor.mouse->press({150, 150});
            QVERIFY(halo.paused());
            if (stolen)
                editor.view->discardSelection();
            QCOMPARE(halo.paused(), !stolen);
            editor.mouse->move({190, 150});
            editor.mouse->release({200, 150});
            QVERIFY(!halo.paused());
        }
        QVERIFY(!editor.view->state().current && editor.view->state().annotations.empty());
        QVERIFY(halo.isHidden());
    }

    void withoutASelectionSavingAndPrintingBeep()
    {
        Editor editor;
        QTest::keyClick(editor.view.get(), Qt::Key_Return); // nothing to copy
        QTest::keyClick(editor.view.get(), Qt::Key_S, Qt::ControlModifier);
        QTest::keyClick(editor.view.get(), Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(editor.desktop.beeps, 2);
        QCOMPARE(editor.session.finished, 0);
    }
};

QTEST_MAIN(OverlayViewTest)
#include "OverlayViewTest.moc"
