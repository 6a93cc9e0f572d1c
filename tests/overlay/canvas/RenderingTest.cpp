#include "overlay/canvas/Rendering.h"

#include "overlay/canvas/MarksLayer.h"

#include "support/Editor.h"
#include "support/Pictures.h"

#include <QTest>

class RenderingTest : public QObject {
    Q_OBJECT

    static std::optional<QImage> rendered(const EditorState &state, const ScreenShot &shot)
    {
        const ViewSpace space(shot.pointSize, shot.scale);
        MarksLayer marks(space);
        marks.follow(state.drawOrder());
        return Rendering::renderSelection(state, shot, marks);
    }

private slots:
    void theRegionLeavesPixelForPixel_data()
    {
        QTest::addColumn<double>("scale");
        QTest::addColumn<QRectF>("selection"); // points, y upwards
        QTest::addColumn<QRect>("pixels");
        QTest::newRow("1x") << 1.0 << QRectF(30, 40, 100, 50) << QRect(30, 110, 100, 50);
        QTest::newRow("2x") << 2.0 << QRectF(30, 40, 100, 50) << QRect(60, 220, 200, 100);
        QTest::newRow("odd pixels at 2x") << 2.0 << QRectF(50.5, 20, 10.5, 40.5) << QRect(101, 279, 21, 81);
        QTest::newRow("1.25x") << 1.25 << QRectF(0.8, 0.8, 80, 40) << QRect(1, 199, 100, 50);
        QTest::newRow("the whole screen") << 1.25 << QRectF(0, 0, 300, 200) << QRect(0, 0, 375, 250);
    }

    void theRegionLeavesPixelForPixel()
    {
        QFETCH(double, scale);
        QFETCH(QRectF, selection);
        QFETCH(QRect, pixels);
        const ScreenShot shot = patternShot({300, 200}, scale);
        const auto picture = rendered({.bounds = {0, 0, 300, 200}, .selection = selection}, shot);
        QVERIFY(picture);
        QCOMPARE(picture->devicePixelRatio(), scale);
        QImage plain = *picture;
        plain.setDevicePixelRatio(1);
        QCOMPARE(plain, shot.image.copy(pixels));
    }

    void aRegionBelowOnePointIsNoPicture()
    {
        const ScreenShot shot = patternShot({300, 200}, 2);
        EditorState state{.bounds = {0, 0, 300, 200}};
        QVERIFY(!rendered(state, shot));
        state.selection = QRectF(10, 10, 0.5, 80);
        QVERIFY(!rendered(state, shot));
        state.selection = QRectF(10, 10, 1, 1);
        QVERIFY(rendered(state, shot));
    }

    // Each tile is drawn by itself, and Qt draws the thinnest lines in a way of its own.
    void aThinLineDoesNotBendWhereTilesMeet()
    {
        const ScreenShot shot = patternShot({600, 400}, 1);
        const QRectF all(0, 0, 600, 400);
        for (const Tool tool : {Tool::pencil, Tool::line, Tool::arrow, Tool::ellipse})
            for (const QPointF to : {QPointF(571, 83), QPointF(520, 311), QPointF(93, 367)}) {
                const auto mark
                    = std::make_shared<Annotation>(tool, Qt::red, 1, QList<QPointF>{{20, 33}, to});
                QImage whole = shot.image;
                QPainter painter(&whole);
                painter.setTransform(ViewSpace(all.size()).upwards());
                mark->draw(painter, all);
                painter.end();
                const auto picture = rendered({.bounds = all, .selection = all, .annotations = {mark}}, shot);
                QVERIFY(picture);
                QCOMPARE(differing(*picture, whole), 0);
            }
    }
};

QTEST_GUILESS_MAIN(RenderingTest)
#include "RenderingTest.moc"
