#include "overlay/canvas/ScreenCells.h"

#include <QRandomGenerator>
#include <QTest>

class ScreenCellsTest : public QObject {
    Q_OBJECT

private slots:
    // Of cells, so it may hold more than was added, but no whole cell too many.
    void theRegionHoldsWhatWasAdded()
    {
        const QRect screen(0, 0, 500, 333);
        constexpr int side = 20;
        QRandomGenerator random(3);
        ScreenCells cells(screen, side);
        QCOMPARE(cells.region(), QRegion());
        QRegion added;
        QRegion expected;
        for (int i = 0; i < 40; ++i) {
            const QRect part(random.bounded(-50, 520), random.bounded(-50, 350), random.bounded(1, 70),
                             random.bounded(1, 30));
            cells.add(part);
            added += part & screen;
            for (const QRect &rect : QRegion(part & screen))
                for (int y = rect.top() / side; y <= rect.bottom() / side; ++y)
                    for (int x = rect.left() / side; x <= rect.right() / side; ++x)
                        expected += QRect(x * side, y * side, side, side) & screen;
        }
        QCOMPARE(added - cells.region(), QRegion());
        QCOMPARE(cells.region(), expected);
    }
};

QTEST_APPLESS_MAIN(ScreenCellsTest)
#include "ScreenCellsTest.moc"
