#include "marks/SelectionGeometry.h"

#include "overlay/gestures/Cursors.h"

#include <QTest>

using namespace SelectionGeometry;

class SelectionGeometryTest : public QObject {
    Q_OBJECT

    const QRectF selection{10, 20, 100, 50};

private slots:
    void handlesAreGrabbedWithSlack_data()
    {
        QTest::addColumn<QPointF>("press");
        QTest::addColumn<int>("handle");
        QTest::newRow("on the corner") << QPointF(10, 20) << 0;
        QTest::newRow("five points outside the corner's square") << QPointF(1, 11) << 0;
        QTest::newRow("six points outside it") << QPointF(0, 20) << -1;
        QTest::newRow("middle of the right edge") << QPointF(110, 45) << 3;
        QTest::newRow("top left") << QPointF(12, 72) << 6;
        QTest::newRow("inside, far from handles") << QPointF(40, 33) << -1;
    }

    void handlesAreGrabbedWithSlack()
    {
        QFETCH(QPointF, press);
        QTEST(handleAt(selection, press).value_or(-1), "handle");
    }

    void onATinySelectionTheFirstHandleWins() { QCOMPARE(handleAt(QRectF(0, 0, 4, 4), {2, 2}), 0); }

    // To the origin, which lies across the opposite edge for most of them: the
    // rectangle turns over.
    void everyHandleDragsItsOwnEdges()
    {
        const QRectF results[] = {{0, 0, 110, 70}, {10, 0, 100, 70}, {0, 0, 10, 70},  {0, 20, 10, 50},
                                  {0, 0, 10, 20},  {10, 0, 100, 20}, {0, 0, 110, 20}, {0, 20, 110, 50}};
        for (int handle = 0; handle < 8; ++handle)
            QCOMPARE(resized(selection, handle, {0, 0}), results[handle]);
    }

    void movingStopsAtTheEdges()
    {
        const QRectF screen(0, 0, 200, 100);
        QCOMPARE(moved(selection, {-30, 5}, screen), QRectF(0, 25, 100, 50));
        QCOMPARE(moved(selection, {500, 500}, screen), QRectF(100, 50, 100, 50));
    }

    void thePointerTellsWhatAPressWouldDo()
    {
        EditorState state{.bounds = {0, 0, 200, 100}};
        QCOMPARE(Cursors::cursorAt(state, {60, 45}), Qt::CrossCursor);
        state.selection = selection;
        QCOMPARE(Cursors::cursorAt(state, {60, 45}), Qt::OpenHandCursor);
        QCOMPARE(Cursors::cursorAt(state, {16, 26}), Qt::CrossCursor); // within 4 of a handle's square
        QCOMPARE(Cursors::cursorAt(state, {150, 45}), Qt::CrossCursor);
        state.tool = Tool::text;
        QCOMPARE(Cursors::cursorAt(state, {60, 45}), Qt::IBeamCursor);
        state.tool = Tool::arrow;
        QCOMPARE(Cursors::cursorAt(state, {60, 45}), Qt::CrossCursor);
    }
};

QTEST_GUILESS_MAIN(SelectionGeometryTest)
#include "SelectionGeometryTest.moc"
