#include "support/Editor.h"
#include "support/TempHome.h"

#include "base/Defaults.h"

#include "overlay/canvas/MarksLayer.h"
#include "overlay/canvas/Rendering.h"

#include <QRandomGenerator>

namespace {

constexpr QRectF selected(100, 100, 600, 400);

// An editor with a mark of every kind but text.
struct Marked : Editor {
    explicit Marked(const QString &screenName = "B") : Editor(screenName)
    {
        mouse->drag(selected.topLeft(), selected.bottomRight());
        for (std::size_t i = 0; i < allTools.size(); ++i)
            if (allTools[i] != Tool::text)
                draw(allTools[i], placeOf(i), placeOf(i) + QPointF(90, 70));
    }
    [[nodiscard]] static QPointF placeOf(std::size_t i)
    {
        return QPointF(150, 160) + QPointF(120 * double(i % 4), 170 * double(i / 4));
    }

    [[nodiscard]] const EditorState &state() const { return view->state(); }
    [[nodiscard]] QPointF where(std::size_t place) const { return state().annotations[place]->first(); }

    // Returns how many pixels of the picture are not as marks drawn anew would make
    // them.
    [[nodiscard]] int wrongInPicture() const
    {
        const auto picture = view->renderSelection();
        const ViewSpace space(shot.pointSize, shot.scale);
        MarksLayer fresh(space);
        fresh.follow(state().drawOrder());
        return differing(*picture, *Rendering::renderSelection(state(), shot, fresh));
    }
};

} // namespace

// Finished marks are moved and removed while Alt is held.
class MarkGrabTest : public QObject {
    Q_OBJECT

    TempHome home;

private slots:
    void initTestCase() { Defaults::setValue(Defaults::shapeTipKey, 99); } // the tip would lie over strokes

    // Whatever comes next, the screen and the picture show what a new start would.
    void whateverIsCorrectedNothingIsLeftOnTheScreen_data() { scales(); }
    void whateverIsCorrectedNothingIsLeftOnTheScreen()
    {
        QFETCH(QString, screen);
        Marked editor(screen);
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        QRandomGenerator random(11);
        int drags = 0;
        // But near the bar, which would fade.
        const auto anywhere = [&] { return QPointF(random.bounded(60, 760), random.bounded(190, 560)); };
        for (int round = 0; round < 16; ++round) {
            const int marks = int(editor.state().annotations.size());
            const QPointF on = editor.where(std::size_t(random.bounded(marks)));
            editor.mouse->hover(on, Qt::AltModifier);
            if (!editor.state().grip)
                continue; // it begins outside the selection
            ++drags;
            QCOMPARE(editor.stale(), 0);
            editor.mouse->press(on, Qt::AltModifier);
            for (int step = 0; step < 2; ++step) {
                editor.mouse->move(anywhere(), Qt::AltModifier);
                QCOMPARE(editor.stale(), 0);
            }
            if (round % 4 == 1)
                editor.view->undo();
            if (round % 4 == 2)
                QTest::keyClick(editor.view.get(), Qt::Key_Delete, Qt::AltModifier);
            editor.mouse->release(anywhere());
            QCOMPARE(editor.stale(), 0);
            if (round % 3 == 0)
                editor.view->undo();
            QCOMPARE(editor.wrongInPicture(), 0);
            QCOMPARE(editor.stale(), 0);
        }
        QVERIFY(drags > 8);
        while (!editor.state().corrections.empty())
            editor.view->undo();
        for (std::size_t i = 0; i < allTools.size() - 1; ++i)
            QCOMPARE(editor.where(i), Marked::placeOf(i < 6 ? i : 7));
        QCOMPARE(editor.stale(), 0);
    }

    void theKeyAloneShowsAndHidesWhatCanBeTaken()
    {
        Marked editor;
        const QPointF on = editor.where(1);
        const auto shape = [&] { return editor.view->cursor().shape(); };
        editor.view->toggleTool(Tool::pencil);
        editor.mouse->hover(on);
        const auto seen = [&] { return editor.withoutBar(editor.shown()); };
        const QImage before = seen();
        QCOMPARE(shape(), Qt::CrossCursor);
        QTest::keyPress(editor.view.get(), Qt::Key_Alt, Qt::NoModifier);
        QCOMPARE(shape(), Qt::OpenHandCursor);
        QVERIFY(differing(before, seen()) > 0);
        editor.mouse->press(on, Qt::AltModifier);
        QCOMPARE(shape(), Qt::ClosedHandCursor);
        editor.mouse->release(on);
        QCOMPARE(shape(), Qt::OpenHandCursor);
        QTest::keyRelease(editor.view.get(), Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(shape(), Qt::CrossCursor);
        QCOMPARE(differing(before, seen()), 0);
        QVERIFY(editor.state().corrections.empty()); // a click moves nothing
        editor.mouse->drag(on, on + QPointF(50, 50));
        QCOMPARE(editor.where(1), on); // without the key it is drawn upon
        QCOMPARE(editor.state().annotations.size(), allTools.size());
        editor.mouse->hover(on, Qt::AltModifier);
        QCOMPARE(shape(), Qt::OpenHandCursor);
        QEnterEvent toTheBar({5, 5}, {5, 5}, {5, 5});
        QCoreApplication::sendEvent(editor.view->findChild<Bar *>(), &toTheBar);
        QCOMPARE(shape(), Qt::CrossCursor);
        QCOMPARE(editor.stale(), 0);
    }

    void aMarkIsCarriedUntilTheButtonIsUpAndNeverOutOfReach()
    {
        Marked editor;
        const QPointF on = editor.where(1);
        editor.mouse->press(on, Qt::AltModifier);
        QTest::keyRelease(editor.view.get(), Qt::Key_Alt, Qt::AltModifier);
        editor.mouse->move(on + QPointF(30, 40));
        editor.mouse->hover({300, 300}); // the release went to somebody else
        QCOMPARE(editor.where(1), on + QPointF(30, 40));
        QVERIFY(!editor.view->halo().paused());
        editor.mouse->drag(editor.where(1), {5000, -300}, Qt::AltModifier);
        QVERIFY(selected.contains(editor.where(1)));
        QCOMPARE(editor.selection(), selected);
        editor.view->undo();
        editor.view->undo();
        QCOMPARE(editor.where(1), on);
        editor.mouse->drag(selected.topLeft(), {90, 90}, Qt::AltModifier); // a handle comes first
        QVERIFY(editor.selection() != selected);
    }

    void undoOrAnotherScreenEndsTheDrag()
    {
        Marked editor;
        const QPointF on = editor.where(3);
        const std::size_t marks = editor.state().annotations.size();
        editor.mouse->press(on, Qt::AltModifier);
        editor.mouse->move(on + QPointF(50, 0), Qt::AltModifier);
        editor.view->undo();
        editor.mouse->move(on + QPointF(90, 0), Qt::AltModifier);
        editor.mouse->release(on + QPointF(90, 0));
        QCOMPARE(editor.where(3), on);
        QCOMPARE(editor.state().annotations.size(), marks);
        editor.mouse->drag(on, on + QPointF(50, 0), Qt::AltModifier);
        editor.mouse->press(on + QPointF(50, 0), Qt::AltModifier);
        editor.view->discardSelection();
        editor.mouse->release(on);
        QVERIFY(editor.state().annotations.empty() && editor.state().corrections.empty());
        QVERIFY(!editor.view->halo().paused());
    }

    void deleteRemovesOneMarkAndLeavesTextsAlone()
    {
        Marked editor;
        const std::size_t marks = editor.state().annotations.size();
        const QPointF on = editor.where(1);
        editor.draw(Tool::line, on, on + QPointF(90, 70)); // one upon the other
        editor.mouse->hover(on);
        QTest::keyClick(editor.view.get(), Qt::Key_Delete);
        QCOMPARE(editor.state().annotations.size(), marks + 1);
        editor.mouse->hover(on, Qt::AltModifier);
        QTest::keyPress(editor.view.get(), Qt::Key_Delete, Qt::AltModifier);
        QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Delete, Qt::AltModifier, QString(), true);
        QCoreApplication::sendEvent(editor.view.get(), &repeat);
        QCOMPARE(editor.state().annotations.size(), marks);
        editor.view->toggleTool(Tool::text);
        editor.mouse->press({600, 450});
        editor.mouse->release({600, 450});
        QTest::keyClicks(editor.view->focusWidget(), QStringLiteral("a"));
        editor.mouse->hover(on, Qt::AltModifier);
        QTest::keyClick(editor.view->focusWidget(), Qt::Key_Delete, Qt::AltModifier);
        QCOMPARE(editor.state().annotations.size(), marks);
        editor.mouse->drag(on, on + QPointF(40, 30), Qt::AltModifier); // ends the text first
        QCOMPARE(editor.state().annotations.size(), marks + 1);
        QCOMPARE(editor.where(1), on + QPointF(40, 30));
    }

    void aPictureTakenInTheMiddleShowsTheMarkWhereItIs()
    {
        Marked editor;
        const QPointF on = editor.where(1);
        editor.mouse->press(on, Qt::AltModifier);
        editor.mouse->move(on + QPointF(50, 20), Qt::AltModifier);
        QCOMPARE(editor.wrongInPicture(), 0);
        QCOMPARE(editor.where(1), on + QPointF(50, 20));
    }
};

QTEST_MAIN(MarkGrabTest)
#include "MarkGrabTest.moc"
