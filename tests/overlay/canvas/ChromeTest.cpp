#include "overlay/canvas/Chrome.h"

#include "base/Rect.h"

#include <QTest>

class ChromeTest : public QObject {
    Q_OBJECT

    const QRectF screen{0, 0, 800, 600};

private slots:
    void theBadgeCountsDevicePixels()
    {
        QCOMPARE(Chrome::sizeText({0, 0, 640, 360}, 2), "1280 × 720");
        QCOMPARE(Chrome::sizeText({0, 0, 100, 50.5}, 1), "100 × 51");
        QCOMPARE(Chrome::sizeText({0, 0, 80, 40}, 1.25), "100 × 50");
    }

    void theBadgeGoesInsideWhereTheScreenEnds()
    {
        const QSizeF text{60, 14};
        QCOMPARE(Chrome::sizeBadge({100, 100, 200, 100}, text, screen), QRectF(100, 210, 76, 20));
        // Room for 10 + 14 + 8 points is just enough.
        QCOMPARE(minY(Chrome::sizeBadge({100, 100, 200, 468}, text, screen)), 578.0);
        QCOMPARE(Chrome::sizeBadge({100, 100, 200, 469}, text, screen), QRectF(106, 543, 76, 20));
    }
};

QTEST_MAIN(ChromeTest)
#include "ChromeTest.moc"
