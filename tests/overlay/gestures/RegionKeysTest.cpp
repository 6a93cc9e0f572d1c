#include "overlay/gestures/RegionKeys.h"

#include "support/Editor.h"

#include "base/Rect.h"

#include "support/TempHome.h"

class RegionKeysTest : public QObject {
    Q_OBJECT

    TempHome home;

    static void press(const Editor &editor, Qt::Key key, Qt::KeyboardModifiers modifiers = {}, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            QTest::keyClick(editor.view.get(), key, modifiers);
    }
    static void hold(const Editor &editor, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyPress(editor.view.get(), key, modifiers);
    }
    static void letGo(const Editor &editor, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyRelease(editor.view.get(), key, modifiers);
    }

private slots:
    void keysAloneMakeARegion_data() { scales(); }
    void keysAloneMakeARegion()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        const double pixel = 1 / editor.shot.scale;
        editor.mouse->hover({100, 200});
        press(editor, Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(editor.session.started, 1);
        QCOMPARE(editor.selection(), QRectF(100, 180, 20, 20));
        press(editor, Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier, 8);
        press(editor, Qt::Key_Down, Qt::AltModifier, 3);
        QCOMPARE(editor.selection(), QRectF(100, 177, 100, 23));
        press(editor, Qt::Key_Tab, {}, 2); // to the upper left corner
        press(editor, Qt::Key_Up, Qt::AltModifier | Qt::ControlModifier, 3);
        press(editor, Qt::Key_Left, Qt::MetaModifier, 2);
        QCOMPARE(*editor.selection(), QRectF(100 - 2 * pixel, 177, 100, 23 + 3 * pixel));
        QCOMPARE(editor.view->renderSelection()->width(), qRound(100 * editor.shot.scale));
        QCOMPARE(editor.stale(), 0);
    }

    void theScreenAndTheOppositeCornerEndTheWay()
    {
        Editor editor;
        editor.mouse->drag({100, 100}, {200, 200});
        editor.draw(Tool::rectangle, {120, 120}, {180, 180});
        press(editor, Qt::Key_Left, Qt::ShiftModifier, 30);
        press(editor, Qt::Key_Down, {}, 200);
        QCOMPARE(editor.selection(), QRectF(0, 0, 100, 100));
        QCOMPARE(editor.view->state().annotations.front()->rectFromPoints(), QRectF(20, 20, 60, 60));
        press(editor, Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier, 30);
        press(editor, Qt::Key_Down, Qt::AltModifier, 3);
        QCOMPARE(editor.selection(), QRectF(0, 0, 1, 100));
        QCOMPARE(editor.stale(), 0);
    }

    void whatIsShrunkToTheEndCanBeCopied_data() { scales(); }
    void whatIsShrunkToTheEndCanBeCopied()
    {
        QFETCH(QString, screen);
        for (const double from : {100.0, 101.6, 103.2, 104.8}) {
            Editor editor(screen);
            editor.mouse->drag({from, 100}, {from + 8, 200});
            press(editor, Qt::Key_Left, Qt::AltModifier | Qt::ControlModifier, 20);
            QVERIFY(editor.view->renderSelection());
        }
    }

    void aTextAndADragKeepTheirKeys()
    {
        Editor editor;
        editor.mouse->drag({100, 100}, {300, 300});
        editor.mouse->press({200, 200});
        press(editor, Qt::Key_Left);
        QCOMPARE(editor.selection(), QRectF(100, 100, 200, 200));
        editor.mouse->release({200, 200});
        editor.view->toggleTool(Tool::text);
        editor.mouse->press({200, 200});
        editor.mouse->release({200, 200});
        QWidget *field = editor.view->focusWidget();
        QTest::keyClick(field, Qt::Key_Left);
        QTest::keyClick(field, Qt::Key_Up, Qt::ShiftModifier);
        QTest::keyClick(field, Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(editor.selection(), QRectF(100, 100, 200, 200));
    }

    void spaceCarriesTheRegionThatIsBeingMade()
    {
        Editor editor;
        editor.mouse->press({100, 100});
        editor.mouse->move({200, 150});
        hold(editor, Qt::Key_Space);
        editor.mouse->move({150, 120});
        QCOMPARE(editor.selection(), QRectF(50, 70, 100, 50));
        editor.mouse->move({-50, 120}); // further than the screen
        QCOMPARE(editor.selection(), QRectF(0, 70, 100, 50));
        editor.mouse->move({160, 130});
        letGo(editor, Qt::Key_Space);
        editor.mouse->move({260, 180});
        editor.mouse->release({260, 180});
        QCOMPARE(editor.selection(), QRectF(60, 80, 200, 100));
    }

    void spaceCarriesTheRegionThatIsBeingResizedWithItsMarks()
    {
        Editor editor;
        editor.mouse->drag({100, 100}, {200, 200});
        editor.draw(Tool::rectangle, {120, 120}, {180, 180});
        editor.mouse->press({200, 200});
        hold(editor, Qt::Key_Space);
        editor.mouse->move({210, 220});
        QCOMPARE(editor.view->state().annotations.front()->rectFromPoints(), QRectF(130, 140, 60, 60));
        editor.mouse->hover({300, 300}); // the releases have gone elsewhere
        editor.mouse->press({210, 220});
        editor.mouse->move({310, 320});
        editor.mouse->release({310, 320});
        QCOMPARE(editor.selection(), QRectF(110, 120, 200, 200));
    }

    void controlShowsTheEdgeUnderALoupe_data() { scales(); }
    void controlShowsTheEdgeUnderALoupe()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        editor.mouse->press({100, 100});
        editor.mouse->move({300, 200});
        const QImage without = editor.shown();
        hold(editor, Qt::Key_Control);
        QVERIFY(differing(editor.shown(), without) > 4000 * editor.shot.scale);
        QCOMPARE(editor.view->cursor().shape(), Qt::BlankCursor);
        editor.mouse->move({320, 220}, Qt::ControlModifier);
        QCOMPARE(editor.stale(), 0);
        editor.mouse->move({300, 200}, Qt::ControlModifier);
        letGo(editor, Qt::Key_Control, Qt::ControlModifier); // as it was before
        QCOMPARE(differing(editor.withoutBar(editor.shown()), editor.withoutBar(without)), 0);
        hold(editor, Qt::Key_Control);
        editor.mouse->release({300, 200});
        QCOMPARE(editor.view->cursor().shape(), Qt::CrossCursor);
        QCOMPARE(editor.stale(), 0);
    }

    void spaceBringsTheLastRegionOfTheScreenBack()
    {
        {
            Editor editor("A");
            editor.mouse->drag({100, 100}, {200, 180});
            Editor other("B");
            other.mouse->drag({10, 10}, {50, 60});
            other.view->discardSelection(); // another screen has it
        }
        {
            Editor slip("A");
            slip.mouse->press({300, 300}); // and Escape
        }
        Editor editor("A");
        press(editor, Qt::Key_Space);
        QCOMPARE(editor.selection(), QRectF(100, 100, 100, 80));
        press(editor, Qt::Key_Space); // there is one
        QCOMPARE(editor.session.started, 1);
        Editor other("B");
        press(other, Qt::Key_Space);
        QCOMPARE(other.selection(), QRectF(10, 10, 40, 50));
    }
};

QTEST_MAIN(RegionKeysTest)
#include "RegionKeysTest.moc"
