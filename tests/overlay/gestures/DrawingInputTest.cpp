#include "overlay/gestures/DrawingInput.h"

#include <QTest>

class DrawingInputTest : public QObject {
    Q_OBJECT

    EditorState state;
    DrawingInput input{state};

    AnnotationPtr drawn(Tool tool, QPointF from, QPointF to, bool constrained = false)
    {
        state.tool = tool;
        input.begin(from);
        input.extend(to, constrained);
        input.commit();
        return state.annotations.back();
    }

private slots:
    void init()
    {
        state = {.bounds = {0, 0, 800, 600}, .selection = QRectF(-100, -100, 400, 400)};
        input.onRest = nullptr;
    }

    void shiftConstrains_data()
    {
        QTest::addColumn<int>("tool");
        QTest::addColumn<QPointF>("to");
        QTest::addColumn<QPointF>("end");
        const double diagonal = std::hypot(10, 9) / std::sqrt(2);
        QTest::newRow("line near 45°") << int(Tool::line) << QPointF(10, 9) << QPointF(diagonal, diagonal);
        QTest::newRow("line near 0°") << int(Tool::line) << QPointF(10, 3) << QPointF(std::hypot(10, 3), 0);
        QTest::newRow("arrow downwards")
            << int(Tool::arrow) << QPointF(1, -20) << QPointF(0, -std::hypot(1, 20));
        QTest::newRow("square to the upper left")
            << int(Tool::rectangle) << QPointF(-5, 20) << QPointF(-20, 20);
        QTest::newRow("circle to the lower right")
            << int(Tool::ellipse) << QPointF(30, -7) << QPointF(30, -30);
        QTest::newRow("pixelation does as it likes")
            << int(Tool::pixelate) << QPointF(30, -7) << QPointF(30, -7);
    }

    void shiftConstrains()
    {
        QFETCH(int, tool);
        QFETCH(QPointF, to);
        QFETCH(QPointF, end);
        const QPointF reached = drawn(Tool(tool), {0, 0}, to, true)->points.last();
        QVERIFY(QLineF(reached, end).length() < 1e-9);
        QCOMPARE(drawn(Tool(tool), {0, 0}, to)->points.last(), to);
    }

    void theSelectionIsAWall()
    {
        QCOMPARE(drawn(Tool::pencil, {0, 0}, {900, 50})->points, (QList<QPointF>{{0, 0}, {0, 0}, {300, 50}}));
        QCOMPARE(drawn(Tool::ellipse, {0, 0}, {50, -900})->points, (QList<QPointF>{{0, 0}, {50, -100}}));
    }

    void aClickIsAMarkToo()
    {
        state.tool = Tool::arrow;
        state.color = Qt::green;
        state.lineWidth = 7;
        input.begin({5, 5});
        state.color = Qt::blue;
        QVERIFY(input.active());
        input.commit();
        QVERIFY(!input.active());
        QCOMPARE(state.annotations.size(), 1U);
        QCOMPARE(state.annotations.front()->color, QColor(Qt::green));
        QCOMPARE(state.annotations.front()->width, 7.0);
    }

    void aTremblingHandIsAtRest()
    {
        QList<QPointF> rests;
        input.onRest = [&](QPointF at) { rests.append(at); };
        state.tool = Tool::pencil;
        input.begin({0, 0});
        input.extend({3, 0}, false);
        input.extend({3.1, 0}, false);
        input.extend({5, 2}, false);
        input.extend({3, 3.5}, false);
        QCOMPARE(rests, (QList<QPointF>{{0, 0}, {3.1, 0}, {3, 3.5}}));
        input.setSnapped();
        input.extend({50, 50}, false);
        QCOMPARE(state.current->points.size(), 6); // a shape takes no more points
        input.commit();
        QVERIFY(!input.snapped());
        drawn(Tool::line, {0, 0}, {50, 50});
        QCOMPARE(rests.size(), 3); // none while the shape was held, none for a line
    }
};

QTEST_GUILESS_MAIN(DrawingInputTest)
#include "DrawingInputTest.moc"
