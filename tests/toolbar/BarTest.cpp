#include "toolbar/Bar.h"
#include "toolbar/BarButton.h"

#include <QMouseEvent>
#include <QTest>

// Counts what gets through to the editor.
class Ground : public QWidget {
public:
    int events = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++events; }
    void mouseMoveEvent(QMouseEvent *) override { ++events; }
    void mouseReleaseEvent(QMouseEvent *) override { ++events; }
};

class BarTest : public QObject {
    Q_OBJECT

private slots:
    void theBarGrowsWithTheTextOfAButton()
    {
        Bar bar(Qt::Horizontal);
        auto *color = new BarButton("circle.fill");
        auto *after = new BarButton("xmark");
        bar.addButton(color);
        bar.addSeparator();
        bar.addButton(after);
        color->setSwatch(Qt::red);
        QCOMPARE(bar.size(), QSize(5 + 34 + 13 + 34 + 3, 42));
        QCOMPARE(after->geometry(), QRect(52, 5, 32, 32));
        color->setWidthLabel("8 px");
        QVERIFY(color->width() > 32);
        QCOMPARE(after->x(), 52 + color->width() - 32);
        color->setWidthLabel({});
        QCOMPARE(bar.width(), 89);
        QCOMPARE(bar.buttons(), (QList<BarButton *>{color, after}));
    }

    void clicksBesideTheButtonsAreSwallowed()
    {
        Ground ground;
        ground.resize(200, 100);
        auto *bar = new Bar(Qt::Horizontal, &ground);
        bar->addButton(new BarButton("xmark"));
        ground.show();
        QTest::mouseClick(bar, Qt::LeftButton, {}, {2, 2});
        QTest::mouseDClick(bar, Qt::LeftButton, {}, {2, 2});
        QTest::mouseClick(bar->buttons().front(), Qt::RightButton);
        QCOMPARE(ground.events, 0);
        QTest::mouseClick(&ground, Qt::LeftButton, {}, {150, 80});
        QVERIFY(ground.events > 0);
    }

    void theShadowReachesBeyondTheBarAndFadesWithIt()
    {
        QWidget ground;
        ground.setStyleSheet("background: white");
        ground.resize(200, 160);
        auto *bar = new Bar(Qt::Horizontal, &ground);
        bar->addSeparator();
        bar->addSeparator();
        bar->addSeparator();
        bar->addSeparator();
        bar->move(70, 50);
        const auto pixel = [&](int x, int y) {
            const QImage image = ground.grab().toImage();
            const double scale = image.devicePixelRatio();
            return image.pixelColor(int(x * scale), int(y * scale)).lightness();
        };
        QVERIFY(pixel(100, 96) < 235);            // below the bar
        QVERIFY(pixel(100, 96) < pixel(100, 44)); // it falls downwards
        QVERIFY(pixel(100, 60) < 60);             // the bar itself
        bar->setAlpha(0.12);
        QVERIFY(pixel(100, 60) > 190);
        bar->setAlpha(1);
        QVERIFY(pixel(100, 60) < 60);
    }

    void thePanelIsRoundAndLighterAtTheTop()
    {
        Bar bar(Qt::Horizontal);
        bar.setAttribute(Qt::WA_TranslucentBackground);
        for (int i = 0; i < 6; ++i)
            bar.addView(new QWidget);
        const QImage image = bar.grab().toImage();
        const int last = image.width() - 1;
        QVERIFY(image.pixelColor(image.width() / 2, 6).lightness()
                > image.pixelColor(image.width() / 2, image.height() - 6).lightness());
        QVERIFY(image.pixelColor(0, image.height() / 2).lightness()
                > image.pixelColor(5, image.height() / 2).lightness() + 10); // the border
        for (const QPoint corner : {QPoint(0, 0), QPoint(last, 0), QPoint(0, image.height() - 1)})
            QVERIFY(image.pixelColor(corner).alpha() < 200);
    }
};

QTEST_MAIN(BarTest)
#include "BarTest.moc"
