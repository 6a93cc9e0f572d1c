#include "toolbar/PaletteGeometry.h"

#include <QTest>

using namespace PaletteGeometry;

// Such as "fixed 3"; empty where a click does nothing.
static QString told(QPointF point, int recentColors)
{
    const auto hit = hitAt(point, recentColors);
    if (!hit)
        return {};
    if (const auto *fixed = std::get_if<FixedColor>(&*hit))
        return QStringLiteral("fixed %1").arg(fixed->index);
    if (const auto *recent = std::get_if<RecentColor>(&*hit))
        return QStringLiteral("recent %1").arg(recent->index);
    return QStringLiteral("eyedropper");
}

class PaletteGeometryTest : public QObject {
    Q_OBJECT

private slots:
    void aClickMeansWhatItHits_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<int>("recentColors");
        QTest::addColumn<QString>("meaning");
        QTest::newRow("first dot") << QPointF(17, 17) << 0 << "fixed 0";
        QTest::newRow("slack of the first dot") << QPointF(6, 6) << 0 << "fixed 0";
        QTest::newRow("beyond the slack") << QPointF(5.9, 6) << 0 << "";
        QTest::newRow("last point before a neighbour") << QPointF(27.9, 17) << 0 << "fixed 0";
        QTest::newRow("border with a neighbour") << QPointF(28, 17) << 0 << "fixed 1";
        QTest::newRow("second row") << QPointF(105, 39) << 0 << "fixed 9";
        QTest::newRow("row of the eyedropper") << QPointF(9, 55) << 0 << "eyedropper";
        QTest::newRow("left of the row") << QPointF(8.9, 60) << 0 << "";
        QTest::newRow("behind the row") << QPointF(113, 60) << 0 << "";
        QTest::newRow("between row and slots") << QPointF(60, 78) << 10 << "";
        QTest::newRow("stored colour") << QPointF(39, 91) << 2 << "recent 1";
        QTest::newRow("slack of a stored colour") << QPointF(6, 80) << 1 << "recent 0";
        QTest::newRow("first empty slot") << QPointF(61, 91) << 2 << "eyedropper";
        QTest::newRow("margin of the slots") << QPointF(2, 81) << 2 << "eyedropper";
        QTest::newRow("slots' own border") << QPointF(2, 80) << 2 << "";
        QTest::newRow("more stored than shown") << QPointF(17, 130) << 15 << "eyedropper";
    }

    void aClickMeansWhatItHits()
    {
        QFETCH(QPointF, point);
        QFETCH(int, recentColors);
        QTEST(told(point, recentColors), "meaning");
    }
};

QTEST_GUILESS_MAIN(PaletteGeometryTest)
#include "PaletteGeometryTest.moc"
