#include "platform/wayland/ScreenScale.h"
#include "platform/wayland/Upright.h"

#include <QTest>

class ScreenScaleTest : public QObject {
    Q_OBJECT

private slots:
    void theScaleIsTheTrueOne_data()
    {
        QTest::addColumn<QSize>("pixels");
        QTest::addColumn<QSize>("points");
        QTest::addColumn<double>("ratio");
        QTest::addColumn<double>("scale");
        QTest::newRow("a whole number") << QSize(2560, 1600) << QSize(1280, 800) << 2.0 << 2.0;
        QTest::newRow("a fraction, which Qt rounds up")
            << QSize(1920, 1080) << QSize(1280, 720) << 2.0 << 1.5;
        QTest::newRow("rounded points") << QSize(1366, 768) << QSize(911, 512) << 2.0 << 1.5;
        QTest::newRow("a number of no steps")
            << QSize(1920, 1080) << QSize(1444, 812) << 2.0 << 1920.0 / 1444;
        QTest::newRow("upright") << QSize(1080, 1920) << QSize(864, 1536) << 2.0 << 1.25;
        QTest::newRow("laid out in pixels") << QSize(2560, 1600) << QSize(2560, 1600) << 2.0 << 2.0;
        QTest::newRow("a screen that was not read") << QSize() << QSize(1280, 800) << 2.0 << 2.0;
        QTest::newRow("a screen without size") << QSize(2560, 1600) << QSize() << 1.0 << 1.0;
    }

    void theScaleIsTheTrueOne()
    {
        QFETCH(QSize, pixels);
        QFETCH(QSize, points);
        QFETCH(double, ratio);
        QTEST(ScreenScale::of(pixels, points, ratio), "scale");
    }

    void rowsMayComeUpsideDown()
    {
        QImage image(2, 3, QImage::Format_RGBX8888);
        image.fill(Qt::white);
        image.setPixelColor(0, 2, Qt::red);
        const QImage turned = upright(image, WL_OUTPUT_TRANSFORM_NORMAL, Rows::bottomFirst);
        QCOMPARE(turned.pixelColor(0, 0), QColor(Qt::red));
        QCOMPARE(turned.format(), QImage::Format_RGB32);
        QCOMPARE(image.pixelColor(0, 2), QColor(Qt::red));
    }
};

QTEST_APPLESS_MAIN(ScreenScaleTest)
#include "ScreenScaleTest.moc"
