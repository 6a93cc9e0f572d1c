#include "support/Editor.h"
#include "support/Strokes.h"
#include "support/TempHome.h"

#include "base/Defaults.h"
#include "base/Rect.h"
#include "overlay/canvas/ShapeHint.h"
#include "overlay/gestures/StrokeLog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>

namespace {

const QPointF middle(400, 300);

// Round the middle, as an unsteady hand would draw it.
QList<QPointF> wobblyCircle(double radius)
{
    QList<QPointF> stroke;
    for (int i = 0; i <= 60; ++i) {
        const double angle = Strokes::turn * i / 60;
        const double r = radius + (i % 3 - 1) * 1.5;
        stroke.append(middle + r * QPointF(std::cos(angle), std::sin(angle)));
    }
    return stroke;
}

// Back and forth without any shape in it.
QList<QPointF> scribble(QPointF at)
{
    QList<QPointF> stroke;
    for (int i = 0; i < 40; ++i)
        stroke.append(at + QPointF((i * 37) % 90, (i * 53) % 71));
    return stroke;
}

// An editor with a large selection and the pencil in hand.
struct Drawing : Editor {
    Drawing()
    {
        mouse->drag({50, 50}, {900, 600});
        view->toggleTool(Tool::pencil);
    }

    // With the button still down at the end.
    void draw(const QList<QPointF> &stroke)
    {
        mouse->press(stroke.first());
        for (const QPointF at : stroke.mid(1))
            mouse->move(at);
    }

    [[nodiscard]] const std::optional<Annotation> &current() const { return view->state().current; }
    [[nodiscard]] bool snapped() const { return current() && current()->original; }
};

// Whatever has been armed before has fired by then.
bool laterHoldFires()
{
    Drawing later;
    later.draw(wobblyCircle(80));
    return QTest::qWaitFor([&] { return later.snapped(); });
}

int tips() { return Defaults::value(Defaults::shapeTipKey).toInt(); }

} // namespace

class HoldToSnapTest : public QObject {
    Q_OBJECT

    TempHome home;

private slots:
    void init()
    {
        Defaults::setValue(Defaults::shapeTipKey, 0);
        Defaults::setValue(Defaults::keepStrokesKey, false);
    }

    void aStrokeHeldStillBecomesAShape()
    {
        Drawing editor;
        const QList<QPointF> stroke = wobblyCircle(120);
        editor.draw(stroke);
        QVERIFY(!editor.snapped());
        QTRY_VERIFY(editor.snapped());
        QVERIFY(home.log().endsWith(" figura: circulo\n"));
        QCOMPARE(editor.desktop.ticks, 1);
        QCOMPARE(editor.current()->original->mid(1), stroke); // the press counts twice
        const QList<QPointF> shape = editor.current()->points;
        for (const QPointF at : shape)
            QVERIFY(std::abs(std::hypot(at.x() - middle.x(), at.y() - middle.y()) - 120) < 4);
        QCOMPARE(editor.stale(), 0);

        editor.mouse->move({700, 500}); // it takes no more points
        editor.mouse->release({700, 500});
        const Annotation mark = *editor.view->state().annotations.back();
        QCOMPARE(mark.points, shape);
        QCOMPARE(mark.tool, Tool::pencil);
        QCOMPARE(tips(), 99);
        editor.view->undo();
        QCOMPARE(editor.view->state().annotations.back()->points.mid(1), stroke);
        editor.view->undo();
        QVERIFY(editor.view->state().annotations.empty());
    }

    void theHandsOwnStrokeComesBackUnderTheStrokeInHand()
    {
        Drawing editor;
        editor.draw(wobblyCircle(120));
        QTRY_VERIFY(editor.snapped());
        editor.mouse->release(middle);
        QTRY_COMPARE(editor.stale(), 0); // the fade is over
        editor.draw({{300, 300}, {420, 320}, {500, 300}});
        editor.view->undo();
        QCOMPARE(editor.stale(), 0);
        editor.mouse->move({520, 290});
        QCOMPARE(editor.stale(), 0);
        editor.mouse->release({520, 290});
        QCOMPARE(editor.stale(), 0);
        QVERIFY(!editor.view->state().annotations.front()->original);
        const QRect inner(200, 350, 500, 400); // clear of the bar and of what frames the selection
        const QImage copied = *editor.view->renderSelection();
        QCOMPARE(differing(copied.copy(inner.translated(-50, -300)), editor.shown().copy(inner)), 0);
    }

    void aMissIsLoggedOnceARest()
    {
        Defaults::setValue(Defaults::keepStrokesKey, true);
        Drawing editor;
        const QList<QPointF> stroke = scribble({200.04, 200.06});
        editor.draw(stroke);
        const auto records = [&] { return home.read("Library/Logs/Vellumora-trazos.jsonl").count('\n'); };
        QTRY_COMPARE(records(), 1);
        editor.mouse->move(stroke.last() + QPointF(2, 2)); // still the same rest
        QVERIFY(laterHoldFires());
        QCOMPARE(records(), 1);
        editor.mouse->move(stroke.last() + QPointF(30, 0));
        QTRY_COMPARE(records(), 2);
        QVERIFY(!editor.snapped());
        QVERIFY(home.log().endsWith(" figura: ninguna (trazo guardado)\n"));

        const QByteArray first = home.read("Library/Logs/Vellumora-trazos.jsonl").split('\n').first();
        const QJsonObject object = QJsonDocument::fromJson(first).object();
        QCOMPARE(object.keys(), (QStringList{"fecha", "puntos"}));
        const QJsonArray numbers = object["puntos"].toArray();
        QCOMPARE(numbers.size(), 2 * (stroke.size() + 1));
        QCOMPARE(numbers.at(0).toDouble(), 200.0);
        QCOMPARE(numbers.at(1).toDouble(), 200.1);
    }

    void aRecordIsExactToTheByte()
    {
        const QDateTime at(QDate(2026, 1, 31), QTime(9, 15, 2), Qt::UTC);
        QCOMPARE(StrokeLog::record(at, {{1, 2.25}, {-0.04, 1000.96}}),
                 R"({"fecha":"2026-01-31 09:15:02 +0000","puntos":[1.0,2.2,-0.0,1001.0]})");
    }

    void fewPointsAndOtherToolsAreLeftAlone()
    {
        Defaults::setValue(Defaults::keepStrokesKey, true);
        Drawing editor;
        const QByteArray before = home.read("Library/Logs/Vellumora-trazos.jsonl");
        editor.mouse->press({100, 100});
        QVERIFY(laterHoldFires());
        QVERIFY(!editor.snapped());
        editor.mouse->release({100, 100});
        editor.view->toggleTool(Tool::line);
        editor.draw(wobblyCircle(80));
        QVERIFY(laterHoldFires());
        QVERIFY(!editor.snapped());
        editor.mouse->release({100, 100});
        editor.view->toggleTool(Tool::marker);
        editor.draw(wobblyCircle(80));
        editor.mouse->release(wobblyCircle(80).last()); // before the moment comes
        QVERIFY(laterHoldFires());
        QVERIFY(!editor.view->state().annotations.back()->original);
        QCOMPARE(home.read("Library/Logs/Vellumora-trazos.jsonl"), before);
        QVERIFY(!editor.view->state().current);
    }

    // The shape settles from a little larger, and nothing of it stays behind.
    void strokeAndShapeCrossFade_data()
    {
        QTest::addColumn<Tool>("tool");
        QTest::addColumn<bool>("letGo");
        QTest::newRow("pencil, held") << Tool::pencil << false;
        QTest::newRow("marker, let go at once") << Tool::marker << true;
    }
    void strokeAndShapeCrossFade()
    {
        QFETCH(Tool, tool);
        QFETCH(bool, letGo);
        Drawing editor;
        if (tool != Tool::pencil)
            editor.view->toggleTool(tool);
        editor.draw(wobblyCircle(150));
        editor.view->update();
        const QImage stroke = editor.shown();
        editor.desktop.stillness = false; // a glow that begins to move waits for its next change
        QVERIFY(QTest::qWaitFor([&] { return editor.snapped(); })); // looks often: the fade is short
        editor.desktop.stillness = true;
        if (letGo)
            editor.mouse->release(middle);
        const QImage fading = editor.shown();
        QVERIFY(laterHoldFires()); // and the fade, which is shorter, is over
        const QImage shape = editor.shown();
        QVERIFY(differing(fading, shape) > 500);
        QVERIFY(differing(fading, stroke) > 500);
        QCOMPARE(editor.stale(), 0);
        if (!letGo)
            editor.mouse->release(middle);
        editor.view->undo();
        QCOMPARE(editor.stale(), 0);
    }

    void theTipIsShownThriceAndNeverToThoseWhoKnow()
    {
        Drawing editor;
        const QImage plain = editor.withoutBar(editor.shown());
        const auto stroke = [&](int points) {
            editor.draw(scribble({100, 100}).mid(0, points - 1)); // the press counts twice
            editor.mouse->release({100, 100});
        };
        const auto bubbleShows = [&] {
            while (!editor.view->state().annotations.empty())
                editor.view->undo();
            return differing(editor.withoutBar(editor.shown()), plain) > 1000;
        };
        stroke(11);
        QVERIFY(!bubbleShows());
        for (const int shown : {1, 2, 3}) {
            stroke(12);
            QCOMPARE(tips(), shown);
            QVERIFY(bubbleShows());
            QCOMPARE(editor.stale(), 0);
        }
        QTRY_VERIFY(!bubbleShows());
        stroke(20);
        QVERIFY(!bubbleShows());
        QCOMPARE(tips(), 3);
    }

    void theTipGoesWithTheSelection()
    {
        Drawing editor;
        editor.draw(scribble({800, 100})); // the tip lies over the selection's edge
        editor.mouse->release({800, 100});
        QCOMPARE(tips(), 1);
        QCOMPARE(editor.stale(), 0);
        editor.view->discardSelection(); // another screen has it now
        QCOMPARE(editor.stale(), 0);
        QCOMPARE(differing(editor.shown(), Editor().shown()), 0);
    }

    void theBubbleStaysOnTheScreen()
    {
        const QRectF bounds(0, 0, 1000, 800);
        const QSizeF text(300, 16);
        QCOMPARE(ShapeHint::bubble({400, 400}, text, bounds), QRectF(416, 362, 324, 26));
        QCOMPARE(ShapeHint::bubble({700, 400}, text, bounds), QRectF(360, 362, 324, 26));
        QCOMPARE(ShapeHint::bubble({400, 30}, text, bounds), QRectF(416, 46, 324, 26));
        QCOMPARE(minX(ShapeHint::bubble({150, 400}, {900, 16}, bounds)), 4.0);
    }
};

QTEST_MAIN(HoldToSnapTest)
#include "HoldToSnapTest.moc"
