#include "support/Editor.h"
#include "support/TempHome.h"

#include "base/Defaults.h"

#include <QRandomGenerator>

#include <functional>
#include <tuple>
#include <vector>

namespace {

// Moves a selection about, and knows what can come between two steps.
class Unrest {
public:
    using Event = std::function<void()>;

    explicit Unrest(Editor &editor) : m_editor(editor) {}

    void draw()
    {
        for (const Tool tool : {Tool::pencil, Tool::marker, Tool::pixelate, Tool::rectangle, Tool::ellipse}) {
            const QPointF at = anywhere(200);
            m_editor.draw(tool, at, at + QPointF(180, 120));
        }
    }

    void press()
    {
        m_held = anywhere();
        m_editor.mouse->press(m_held);
    }
    void moveAbout()
    {
        for (int step = 0; step < 5; ++step) {
            moveBy(QPointF(m_random.bounded(-14, 15), m_random.bounded(-14, 15)) / m_editor.shot.scale);
            if (step % 3 != 0) // or two steps are painted at once
                std::ignore = m_editor.shown();
        }
    }
    void release() { m_editor.mouse->release(m_held); }

    [[nodiscard]] const Event &anyOf(const std::vector<Event> &events)
    {
        return events[std::size_t(m_random.bounded(int(events.size())))];
    }
    [[nodiscard]] std::vector<Event> events()
    {
        OverlayView &view = *m_editor.view;
        return {
            [] {},
            [this] { draw(); },
            [&view] { view.undo(); },
            [this] { m_editor.turnWheel(anywhere(), 120); },
            [this] { m_editor.mouse->hover(anywhere(), Qt::AltModifier); },
            [this] { grabElsewhere(); },
            [this] { getAnotherMemory(); },
            [this] { showChild(); },
            [this] { pick(); },
            [this] { type(); },
        };
    }

private:
    QPointF anywhere(double away = 0)
    {
        const QRectF inner = m_editor.view->state().selection->adjusted(20, 20, -20 - away, -20 - away);
        return inner.topLeft() + QPointF(m_random.bounded(inner.width()), m_random.bounded(inner.height()));
    }
    void moveBy(QPointF way)
    {
        m_held += way;
        m_editor.mouse->move(m_held);
    }
    void grabElsewhere()
    {
        moveBy({3, 2});
        m_editor.view->grab();
    }
    void getAnotherMemory()
    {
        OverlayView &view = *m_editor.view;
        view.setWindowFlag(Qt::FramelessWindowHint, m_random.bounded(2) != 0);
        view.show();
        view.resize(view.size() / 2);
        view.resize(m_editor.shot.pointSize.toSize());
    }
    // One that paints without the view.
    void showChild()
    {
        QWidget child(m_editor.view.get());
        child.setAutoFillBackground(true);
        for (const QRect &place :
             {QRect(300, 200, 50, 50), QRect(300, 200, 150, 90), QRect(420, 260, 150, 90)}) {
            child.setGeometry(place);
            child.show();
            std::ignore = m_editor.shown();
        }
    }
    void pick()
    {
        m_editor.view->startPicking();
        std::ignore = m_editor.shown();
        QTest::keyClick(m_editor.view.get(), Qt::Key_Escape);
    }
    void type()
    {
        m_editor.view->toggleTool(Tool::text);
        m_editor.mouse->drag(anywhere(), anywhere());
        m_editor.view->toggleTool(Tool::text);
    }

    Editor &m_editor;
    QRandomGenerator m_random{5};
    QPointF m_held;
};

} // namespace

class SelectionStepsTest : public QObject {
    Q_OBJECT

    TempHome home;

    // Enough, four a row, for the bar to have lain on whole pixels once.
    static int steps(const Editor &editor) { return editor.shot.scale == 1.25 ? 16 : 3; }

private slots:
    void initTestCase() { Defaults::setValue(Defaults::shapeTipKey, 99); } // the tip would lie over strokes

    // A step writes only what it changes, and so relies on all that was painted before.
    void manyStepsLeaveNothingBehind_data() { scales(); }
    void manyStepsLeaveNothingBehind()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        const QSizeF points = editor.shot.pointSize;
        editor.mouse->drag({100, 8}, {points.width() - 20, points.height() - 90}); // badge and bar lie within
        Unrest unrest(editor);
        unrest.draw();
        const auto events = unrest.events();
        for (const auto &event : events) {
            unrest.press();
            unrest.moveAbout();
            event(); // in the middle of a drag
            unrest.moveAbout();
            QCOMPARE(editor.stale(), 0);
            unrest.release();
            unrest.anyOf(events)();
        }
        QVERIFY(!editor.view->state().annotations.empty());
    }

    // A spot of another colour shows what has been written, and what has not.
    void aStepWritesOnlyWhatItChanges_data() { scales(); }
    void aStepWritesOnlyWhatItChanges()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        editor.mouse->drag({100, 100}, {700, 500});
        editor.draw(Tool::rectangle, {300, 200}, {500, 400});
        editor.mouse->press({600, 450});
        editor.mouse->move({604, 454});
        std::ignore = editor.shown();
        editor.mark({318, 220}); // close to where the line goes
        editor.mark({308, 300});
        editor.mouse->move({608, 454});
        QVERIFY(editor.isMarked({318, 220}));
        QVERIFY(!editor.isMarked({308, 300})); // there the line goes
    }

    // In the window it is blended together with what lies beneath, elsewhere by itself.
    void theBarShowsOnceHoweverItIsPainted_data() { scales(); }
    void theBarShowsOnceHoweverItIsPainted()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        const QSizeF points = editor.shot.pointSize;
        for (const double margin : {150.0, 12.0}) { // below the selection, and within it over a handle
            editor.view->discardSelection();
            editor.mouse->drag({margin, margin}, {points.width() - margin, points.height() - margin});
            editor.mouse->press({300, 300});
            for (int step = 0; step < steps(editor); ++step) {
                editor.mouse->move(QPointF(298 + step % 4, 298 + step / 4));
                QCOMPARE(differing(editor.shown(), editor.view->grab().toImage()), 0);
            }
            editor.mouse->release({301, 301});
        }
    }

    // There the glow is written by itself, after what lies beneath.
    void theBarShowsOverAGlowThatStands_data() { scales(); }
    void theBarShowsOverAGlowThatStands()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        editor.desktop.stillness = false;
        QVERIFY(QTest::qWaitForWindowExposed(editor.view.get()));
        editor.mouse->drag({200, 300}, {900, 600});
        for (int step = 0; step < steps(editor); ++step) {
            editor.mouse->drag({500, 400}, step % 4 == 3 ? QPointF(497, 401) : QPointF(501, 400));
            QTRY_VERIFY(!editor.view->halo().covered().isEmpty());
            editor.view->repaint();
            const QImage now = editor.pixels()->copy();
            QCOMPARE(differing(now, editor.view->grab().toImage()), 0);
        }
    }
};

QTEST_MAIN(SelectionStepsTest)
#include "SelectionStepsTest.moc"
