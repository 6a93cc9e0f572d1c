#include "toolbar/ColorHex.h"
#include "toolbar/Theme.h"

#include <QTest>

class ColorHexTest : public QObject {
    Q_OBJECT

private slots:
    void coloursAreWrittenInSixDigits()
    {
        QCOMPARE(hex(Qt::white), "#FFFFFF");
        QCOMPARE(hex(Theme::drawColors.front()), "#FF3B30");
        QCOMPARE(hex(QColor(1, 2, 171, 40)), "#0102AB");
        QCOMPARE(hex(QColor::fromHsvF(0, 1, 1)), "#FF0000");
        QCOMPARE(hex(QColor::fromRgbF(0.5F, 0, 0)), "#800000"); // half goes up
    }
};

QTEST_GUILESS_MAIN(ColorHexTest)
#include "ColorHexTest.moc"
