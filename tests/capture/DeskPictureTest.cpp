#include "capture/DeskPicture.h"

#include "support/Pictures.h"

#include <QTest>

namespace {

// A screen at a place of the desk, with so many pixels for each of its units there.
ScreenShot shotAt(QRect place, double density, double scale)
{
    const QImage image = pattern((QSizeF(place.size()) * density).toSize());
    return {nullptr, image, scale, QSizeF(image.size()) / scale, place};
}

} // namespace

class DeskPictureTest : public QObject {
    Q_OBJECT

private slots:
    void screensKeepTheirPixelsWhereverTheyLie_data()
    {
        using Shots = std::vector<ScreenShot>;
        QTest::addColumn<Shots>("shots");
        QTest::addColumn<QList<QRect>>("areas");
        QTest::newRow("all in pixels, whatever their scales")
            << Shots{shotAt({0, 0, 40, 30}, 1, 2), shotAt({40, 10, 20, 10}, 1, 1)}
            << QList<QRect>{{0, 0, 40, 30}, {40, 10, 20, 10}};
        QTest::newRow("side by side, mixed")
            << Shots{shotAt({0, 0, 20, 15}, 2, 2), shotAt({20, 0, 30, 10}, 1, 1)}
            << QList<QRect>{{0, 0, 40, 30}, {40, 0, 30, 10}};
        QTest::newRow("one scale, with a gap")
            << Shots{shotAt({10, 0, 20, 15}, 2, 2), shotAt({40, 5, 20, 10}, 2, 2)}
            << QList<QRect>{{20, 0, 40, 30}, {80, 10, 40, 20}};
        QTest::newRow("left of and above zero")
            << Shots{shotAt({0, 0, 20, 10}, 1, 1), shotAt({-20, -5, 20, 10}, 2, 2)}
            << QList<QRect>{{0, 0, 20, 10}, {-40, -10, 40, 20}};
        QTest::newRow("one above the other, offset")
            << Shots{shotAt({0, 0, 20, 10}, 1, 1), shotAt({10, 10, 20, 10}, 2, 2)}
            << QList<QRect>{{0, 0, 20, 10}, {10, 10, 40, 20}};
        QTest::newRow("a broken scale")
            << Shots{shotAt({0, 0, 20, 10}, 1.5, 1.5), shotAt({20, 0, 20, 10}, 1.25, 1.25)}
            << QList<QRect>{{0, 0, 30, 15}, {30, 0, 25, 13}};
    }

    void screensKeepTheirPixelsWhereverTheyLie()
    {
        QFETCH(const std::vector<ScreenShot>, shots);
        QFETCH(const QList<QRect>, areas);
        const DeskPicture desk(shots);
        const QRect all = desk.area();
        QCOMPARE(all, areas.at(0) | areas.at(1));
        const QImage whole = desk.cut(all);
        for (int i = 0; i < areas.size(); ++i) {
            const QImage own = shots[size_t(i)].image;
            QCOMPARE(whole.copy(areas[i].translated(-all.topLeft())), own);
            QCOMPARE(desk.cut(areas[i]), own);
            QCOMPARE(desk.cut(areas[i].adjusted(1, 2, -3, -4)), own.copy(own.rect().adjusted(1, 2, -3, -4)));
            QCOMPARE(desk.scaleOf(areas[i]), shots[size_t(i)].scale);
        }
    }

    void whatNoScreenShowsIsBlack()
    {
        const DeskPicture desk({shotAt({0, 0, 10, 10}, 2, 2), shotAt({20, 0, 10, 5}, 1, 1)});
        const QRect gap(25, 0, 10, 20);
        QVERIFY(!desk.shows(gap) && desk.shows(gap.adjusted(0, 0, 10, 0)) && !desk.shows({}));
        const QImage across = desk.cut({15, 0, 30, 10});
        QCOMPARE(across.pixel(4, 9), pattern({20, 20}).pixel(19, 9));
        QCOMPARE(across.pixel(5, 9), qRgb(0, 0, 0));
        QCOMPARE(across.pixel(25, 4), pattern({10, 5}).pixel(0, 4));
        QCOMPARE(across.pixel(25, 5), qRgb(0, 0, 0));
        QCOMPARE(desk.scaleOf({15, 0, 30, 10}), 1.0);
    }
};

QTEST_GUILESS_MAIN(DeskPictureTest)
#include "DeskPictureTest.moc"
