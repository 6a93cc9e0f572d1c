#include "base/ViewSpace.h"

#include <QTest>

class ViewSpaceTest : public QObject {
    Q_OBJECT

private slots:
    void crossingTwiceComesBack()
    {
        const ViewSpace space({800, 600});
        QCOMPARE(space.fromWidget({10, 20}), QPointF(10, 580));
        QCOMPARE(space.toWidget(QRectF(10, 20, 30, 40)), QRectF(10, 540, 30, 40));
        QCOMPARE(space.upwards().map(QPointF(10, 580)), QPointF(10, 20));
    }

    void pixelsAreRoundedOutwards_data()
    {
        QTest::addColumn<QRectF>("points");
        QTest::addColumn<double>("scale");
        QTest::addColumn<QRect>("pixels");
        QTest::newRow("whole") << QRectF(10, 20, 30, 40) << 1.0 << QRect(10, 540, 30, 40);
        QTest::newRow("half points on a dense screen")
            << QRectF(50.5, 20, 10.5, 40.5) << 2.0 << QRect(101, 1079, 21, 81);
        QTest::newRow("fractions of pixels") << QRectF(0.3, 0.3, 1, 1) << 1.0 << QRect(0, 598, 2, 2);
        QTest::newRow("thirds of points")
            << QRectF(101 / 1.5, 600 - 402 / 1.5, 301 / 1.5, 203 / 1.5) << 1.5 << QRect(101, 199, 301, 203);
        QTest::newRow("fractional scale") << QRectF(0.8, 0, 0.8, 0.8) << 1.25 << QRect(1, 749, 1, 1);
    }

    void pixelsAreRoundedOutwards()
    {
        QFETCH(QRectF, points);
        QFETCH(double, scale);
        QTEST(ViewSpace({800, 600}, scale).toPixels(points), "pixels");
    }
};

QTEST_GUILESS_MAIN(ViewSpaceTest)
#include "ViewSpaceTest.moc"
