#include "platform/wayland/PortalCut.h"

#include <QTest>

using PortalCut::pieces;
using PortalCut::Screen;

class PortalCutTest : public QObject {
    Q_OBJECT

    using Screens = std::vector<Screen>;
    using Areas = QList<QRect>;
    using Exact = QList<bool>;

    // Sharp to the left of coarse, laid out in points.
    const Screens mixed{{{0, 0, 1280, 800}, {2560, 1600}, 2}, {{1280, 0, 800, 600}, {800, 600}, 1}};
    // The same where the desktop counts in pixels.
    const Screens inPixels{{{0, 0, 2560, 1600}, {2560, 1600}, 2}, {{2560, 0, 800, 600}, {800, 600}, 1}};

private slots:
    void everyScreenIsFound_data()
    {
        QTest::addColumn<Screens>("screens");
        QTest::addColumn<QSize>("picture");
        QTest::addColumn<Areas>("areas");
        QTest::addColumn<Exact>("exact");

        const Screens equal{{{0, 0, 1280, 800}, {1280, 800}, 1}, {{1280, 0, 1280, 800}, {1280, 800}, 1}};
        QTest::newRow("one scale for all")
            << equal << QSize(2560, 800) << Areas{{0, 0, 1280, 800}, {1280, 0, 1280, 800}}
            << Exact{true, true};
        QTest::newRow("magnified to the largest scale")
            << mixed << QSize(4160, 1600) << Areas{{0, 0, 2560, 1600}, {2560, 0, 1600, 1200}}
            << Exact{true, false};
        QTest::newRow("in points") << mixed << QSize(2080, 800)
                                   << Areas{{0, 0, 1280, 800}, {1280, 0, 800, 600}} << Exact{false, true};
        QTest::newRow("laid out in pixels")
            << inPixels << QSize(3360, 1600) << Areas{{0, 0, 2560, 1600}, {2560, 0, 800, 600}}
            << Exact{true, true};
        const Screens pixelPlaces{mixed[0], {{2560, 0, 800, 600}, {800, 600}, 1}};
        QTest::newRow("only the places in pixels")
            << pixelPlaces << QSize(3360, 1600) << Areas{{0, 0, 2560, 1600}, {2560, 0, 800, 600}}
            << Exact{true, true};
        const Screens left{{{-800, 200, 800, 600}, {800, 600}, 1}, {{0, 0, 1280, 800}, {1280, 800}, 1}};
        QTest::newRow("to the left of the first and lower")
            << left << QSize(2080, 800) << Areas{{0, 200, 800, 600}, {800, 0, 1280, 800}}
            << Exact{true, true};
        const Screens fraction{{{0, 0, 1536, 864}, {1920, 1080}, 2}};
        QTest::newRow("a fraction, by itself")
            << fraction << QSize(1920, 1080) << Areas{{0, 0, 1920, 1080}} << Exact{true};
        QTest::newRow("a fraction, at the next whole scale")
            << fraction << QSize(3072, 1728) << Areas{{0, 0, 3072, 1728}} << Exact{false};
        // 1366 pixels at 1.5 are 910.67 points.
        const Screens odd{{{0, 0, 911, 512}, {1366, 768}, 2}, {{911, 0, 800, 600}, {1200, 900}, 2}};
        QTest::newRow("rounded points")
            << odd << QSize(2566, 900) << Areas{{0, 0, 1366, 768}, {1366, 0, 1200, 900}} << Exact{true, true};
        const Screens twins{{{0, 0, 1280, 800}, {2560, 1600}, 2}, {{0, 0, 1280, 800}, {1280, 800}, 1}};
        QTest::newRow("mirrored") << twins << QSize(2560, 1600)
                                  << Areas{{0, 0, 2560, 1600}, {0, 0, 2560, 1600}} << Exact{true, false};
    }

    void everyScreenIsFound()
    {
        QFETCH(Screens, screens);
        QFETCH(QSize, picture);
        QFETCH(Areas, areas);
        QFETCH(Exact, exact);
        const auto found = pieces(picture, screens);
        QVERIFY(found);
        QCOMPARE(found->size(), screens.size());
        for (size_t i = 0; i < screens.size(); ++i) {
            QCOMPARE((*found)[i].area, areas[qsizetype(i)]);
            QCOMPARE((*found)[i].exact, exact[qsizetype(i)]);
        }
    }

    void otherPicturesAreRefused_data()
    {
        QTest::addColumn<Screens>("screens");
        QTest::addColumn<QSize>("picture");
        QTest::newRow("one screen of two") << mixed << QSize(2560, 1600);
        QTest::newRow("a strip") << mixed << QSize(4160, 1500);
        QTest::newRow("half the size") << mixed << QSize(1040, 400);
        QTest::newRow("nothing") << mixed << QSize(0, 0);
        QTest::newRow("no picture") << mixed << QSize();
        QTest::newRow("no screens") << Screens{} << QSize(100, 100);
        QTest::newRow("a screen without pixels") << Screens{{{0, 0, 10, 10}, {0, 0}, 1}} << QSize(10, 10);
        QTest::newRow("a screen without points") << Screens{{{0, 0, 0, 0}, {10, 10}, 1}} << QSize(10, 10);
    }

    void otherPicturesAreRefused()
    {
        QFETCH(Screens, screens);
        QFETCH(QSize, picture);
        QVERIFY(!pieces(picture, screens));
    }

    // The desktop is as large in points as in pixels, because the sharp screen lies in
    // a corner of it.
    void theirOwnPixelsAreMoreLikely()
    {
        const auto found = pieces({600, 400}, {{{0, 0, 400, 400}, {400, 400}, 1},
                                               {{400, 0, 100, 100}, {200, 200}, 2},
                                               {{400, 200, 200, 200}, {200, 200}, 1}});
        QVERIFY(found);
        QCOMPARE((*found)[1].area, QRect(400, 0, 200, 200));
        QVERIFY((*found)[1].exact);
    }
};

QTEST_APPLESS_MAIN(PortalCutTest)
#include "PortalCutTest.moc"
