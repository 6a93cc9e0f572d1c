#include "marks/EditorState.h"

#include "support/Pictures.h"

#include <QTest>

// Where marks can be taken hold of, and in which order steps are taken back.
class EditorStateTest : public QObject {
    Q_OBJECT

    EditorState state;

    void add(Tool tool, QList<QPointF> points, double width = 4)
    {
        state.annotations.push_back(std::make_shared<Annotation>(tool, Qt::red, width, std::move(points)));
    }
    // The marks, each by where it begins.
    [[nodiscard]] QList<QPointF> beginnings() const
    {
        QList<QPointF> all;
        for (const AnnotationPtr &mark : state.annotations)
            all.append(mark->first());
        return all;
    }
    [[nodiscard]] bool undoneTo(const QList<QPointF> &wanted)
    {
        return state.undoLast() && beginnings() == wanted;
    }

private slots:
    void init() { state = {.bounds = {0, 0, 400, 300}, .selection = QRectF(0, 0, 400, 300)}; }

    void aMarkIsTakenHoldOfNearWhatIsDrawn_data()
    {
        QTest::addColumn<int>("tool");
        QTest::addColumn<QList<QPointF>>("points");
        QTest::addColumn<QPointF>("on");
        QTest::addColumn<QPointF>("beside");
        const auto row = [](const char *name, Tool tool, const QList<QPointF> &points, QPointF on,
                            QPointF beside) { QTest::newRow(name) << int(tool) << points << on << beside; };
        const QList<QPointF> corners{{100, 100}, {200, 180}};
        row("pencil", Tool::pencil, {{50, 50}, {100, 50}, {100, 150}}, {106, 120}, {92, 120});
        row("dot", Tool::pencil, {{50, 50}, {50, 50}}, {55, 54}, {58, 50});
        row("line", Tool::line, corners, {150, 146}, {150, 120});
        row("arrow's shaft", Tool::arrow, corners, {120, 121}, {120, 140});
        row("arrow's head", Tool::arrow, {{100, 100}, {200, 100}}, {184, 108}, {150, 108});
        row("too short an arrow", Tool::arrow, {{0, 100}, {200, 100}}, {100, 100}, {-20, 100});
        row("rectangle", Tool::rectangle, corners, {204, 140}, {150, 140});
        row("ellipse", Tool::ellipse, corners, {150, 184}, {102, 102});
        row("highlighter", Tool::marker, {{50, 50}, {150, 50}}, {100, 64}, {100, 67});
        row("mosaic", Tool::pixelate, corners, {150, 140}, {202, 140});
    }
    void aMarkIsTakenHoldOfNearWhatIsDrawn()
    {
        const ScreenShot shot = patternShot({400, 300}, 1);
        Annotation::background = shot.image;
        Annotation::backgroundScale = 1;
        Annotation::viewHeight = 300;
        QFETCH(int, tool);
        QFETCH(QList<QPointF>, points);
        QFETCH(QPointF, on);
        QFETCH(QPointF, beside);
        add(Tool(tool), points);
        QVERIFY(state.markAt(on));
        QVERIFY(!state.markAt(beside));
        state.moveMark(0, {30, -20});
        QVERIFY(state.markAt(on + QPointF(30, -20)));
        QVERIFY(!state.markAt(beside + QPointF(30, -20)));
    }

    void theUppermostMarkComesFirstAndWhatDrawsNothingNever()
    {
        add(Tool::line, {{0, 50}, {100, 50}});
        add(Tool::line, {{0, 52}, {100, 52}});
        add(Tool::pixelate, {{0, 0}, {100, 100}}); // below both, though drawn last
        add(Tool::arrow, {{50, 50}, {50, 50}});
        Annotation text(Tool::text, Qt::red, 3, {{200, 100}});
        text.text = QStringLiteral("HIT");
        state.annotations.push_back(std::make_shared<Annotation>(text));
        QCOMPARE(state.markAt({50, 50}), std::optional<std::size_t>(1));
        QCOMPARE(state.markAt({210, 104}), std::optional<std::size_t>(4));
        QVERIFY(!state.markAt({210, 130}));
    }

    void correctionsAreTakenBackBeforeAnythingOlder()
    {
        const QPointF a(10, 10), b(20, 20), c(30, 30), d(40, 40), way(5, 7);
        for (const QPointF at : {a, b, c})
            add(Tool::line, {at, at + QPointF(9, 9)});
        state.moveMark(1, way);
        state.removeMark(0);
        add(Tool::line, {d, d});
        state.removeMark(0);
        QCOMPARE(beginnings(), QList({c, d}));
        QVERIFY(undoneTo({b + way, c, d}));
        QVERIFY(undoneTo({b + way, c}));
        QVERIFY(undoneTo({a, b + way, c}));
        QVERIFY(undoneTo({a, b, c}));
        QVERIFY(undoneTo({a, b}));
        state.discardMarks();
        QVERIFY(!state.undoLast());
    }

    void aPerfectShapeIsMovedBackBeforeItIsAStrokeAgain()
    {
        Annotation shape(Tool::pencil, Qt::red, 3, {{10, 10}, {20, 20}});
        shape.original = QList<QPointF>{{12, 10}, {19, 21}, {22, 20}};
        state.annotations.push_back(std::make_shared<Annotation>(shape));
        state.moveMark(0, {5, 5});
        QVERIFY(undoneTo({{10, 10}}));
        QVERIFY(state.annotations.front()->original);
        QVERIFY(undoneTo({{12, 10}}));
        QVERIFY(undoneTo({}));
    }

    // Moving the selection is no step of its own; what comes back has moved along.
    void whatComesBackHasTravelledWithTheSelection()
    {
        add(Tool::line, {{10, 10}, {20, 20}});
        add(Tool::line, {{50, 50}, {60, 60}});
        state.selection = QRectF(0, 0, 100, 100);
        state.moveMark(0, {5, 0});
        state.removeMark(1);
        state.moveSelectionTo({30, 40, 100, 100});
        QVERIFY(undoneTo({{45, 50}, {80, 90}}));
        QVERIFY(undoneTo({{40, 50}, {80, 90}}));
    }
};

QTEST_MAIN(EditorStateTest)
#include "EditorStateTest.moc"
