#include "toolbar/BarLayout.h"

#include <QTest>

using namespace BarLayout;

class BarLayoutTest : public QObject {
    Q_OBJECT

private slots:
    void piecesFollowEachOtherAlongTheBar()
    {
        const Frames row = layOut(Qt::Horizontal, {{Kind::button}, {Kind::separator}, {Kind::button, 81}});
        QCOMPARE(row.items, (QList<QRectF>{{5, 5, 32, 32}, {45, 12, 1, 18}, {52, 5, 81, 32}}));
        QCOMPARE(row.size, QSizeF(138, 42));
    }

    void aColumnMakesEveryButtonSquare()
    {
        const Frames column = layOut(Qt::Vertical, {{Kind::button, 81}, {Kind::separator}, {Kind::button}});
        QCOMPARE(column.items, (QList<QRectF>{{5, 5, 32, 32}, {11, 45, 20, 1}, {5, 52, 32, 32}}));
        QCOMPARE(column.size, QSizeF(42, 89));
    }

    void aDecorationCoversTheBarAndTakesNoRoom()
    {
        const Frames row = layOut(Qt::Horizontal, {{Kind::decoration}, {Kind::button}});
        QCOMPARE(row.items, (QList<QRectF>{{0, 0, 42, 42}, {5, 5, 32, 32}}));
    }

    void theHighlightNeverHasANegativeWidth()
    {
        QCOMPARE(edge({100, 42}), QRectF(14, 0.5, 72, 1));
        QCOMPARE(edge({8, 42}).width(), 0);
    }
};

QTEST_GUILESS_MAIN(BarLayoutTest)
#include "BarLayoutTest.moc"
