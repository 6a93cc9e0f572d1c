#include "overlay/canvas/Loupe.h"
#include "overlay/canvas/ScreenPixels.h"
#include "overlay/canvas/WidthPreview.h"

#include "base/Rect.h"
#include "base/ViewSpace.h"
#include "support/Pictures.h"

#include <QPainter>
#include <QTest>

class EyedropperTest : public QObject {
    Q_OBJECT

    static QImage loupeAt(QPointF at, const ScreenShot &shot)
    {
        QImage sheet(shot.image.size(), QImage::Format_RGB32);
        sheet.setDevicePixelRatio(shot.scale);
        sheet.fill(Qt::magenta);
        QPainter painter(&sheet);
        painter.setTransform(ViewSpace(shot.pointSize).upwards(), true);
        Loupe::draw(painter, shot, at);
        return sheet;
    }

private slots:
    void everyPointHasItsPixel()
    {
        const ScreenShot shot = patternShot({400, 900}, 2);
        QCOMPARE(ScreenPixels::pixelRect(shot, {10.3, 20.7}, 0), QRect(20, 1758, 1, 1));
        QCOMPARE(ScreenPixels::pixelRect(shot, {10.3, 20.7}, 5), QRect(15, 1753, 11, 11));
        QCOMPARE(ScreenPixels::pixelColor(shot, {10.3, 20.7}), shot.image.pixelColor(20, 1758));
        QVERIFY(!ScreenPixels::pixelColor(shot, {400, 20}));
        QVERIFY(!ScreenPixels::pixelColor(shot, {10, 0})); // the lower edge belongs to the screen below
        QVERIFY(!ScreenPixels::pixelColor(shot, {qQNaN(), qInf()}));
    }

    void theLoupeMagnifiesThePixelsAroundThePointer()
    {
        for (const double scale : {1.0, 2.0}) {
            const ScreenShot shot = patternShot({400, 300}, scale);
            const QImage sheet = loupeAt({200, 150}, shot);
            const QPoint centre = shot.image.rect().center() + QPoint(1, 1);
            for (const QPoint d : {QPoint(0, 0), QPoint(3, 0), QPoint(-2, 4), QPoint(0, -5)}) {
                const QPoint cell = centre + (QPointF(d) * Loupe::zoom * scale).toPoint();
                QCOMPARE(sheet.pixel(cell), shot.image.pixel(centre + d));
            }
        }
    }

    void beyondTheScreenTheLoupeIsBlack()
    {
        const ScreenShot shot = patternShot({400, 300}, 1);
        const QImage sheet = loupeAt({0.5, 299.5}, shot); // the top left pixel
        QCOMPARE(sheet.pixel(0, 0), shot.image.pixel(0, 0));
        QCOMPARE(sheet.pixel(24, 24), shot.image.pixel(2, 2));
        const QImage right = loupeAt({399.5, 150}, shot);
        QCOMPARE(right.pixelColor(399, 150).green(), 150);
        const QImage corner = loupeAt({370, 150}, patternShot({373, 300}, 1));
        QCOMPARE(corner.pixelColor(372, 150).red(), 370 & 0xff);
    }

    void theReadoutFlipsAboveAtTheLowerEdge()
    {
        QCOMPARE(Loupe::badge({200, 150}, {50, 13}), QRectF(160, 57, 80, 19));
        QVERIFY(minY(Loupe::badge({200, 95}, {50, 13})) == 2);
        QCOMPARE(minY(Loupe::badge({200, 94.9}, {50, 13})), 94.9 + 66 + 8);
    }

    void theWidthsSampleStaysOnTheScreen()
    {
        EditorState state{.bounds = {0, 0, 1280, 800}, .tool = Tool::pencil};
        state.lineWidth = 36;
        for (const Tool tool : allTools) {
            state.tool = tool;
            for (const QPointF at : {QPointF(0, 0), QPointF(1280, 0), QPointF(1280, 800), QPointF(640, 800)})
                QVERIFY(grown(state.bounds, -4).contains(WidthPreview::panel(state, at)));
        }
        state.tool = Tool::arrow;
        QCOMPARE(WidthPreview::panel(state, {100, 400}).height(), 260.0);
    }
};

QTEST_MAIN(EyedropperTest)
#include "EyedropperTest.moc"
