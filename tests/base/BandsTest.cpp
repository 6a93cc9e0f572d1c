#include "base/Bands.h"

#include <QImage>
#include <QPainter>
#include <QTest>
#include <QWidget>

namespace {

const QSize size(1600, 900); // device pixels; large enough for several threads

// Differs in every pixel, and shows where something was painted twice.
QImage pattern()
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgba(x % 100, y % 100, (x + y) % 100, 100));
    return image;
}

} // namespace

class BandsTest : public QObject {
    Q_OBJECT

private slots:
    void everyPixelOfTheRegionIsPaintedOnce_data()
    {
        QTest::addColumn<QRegion>("region");
        QTest::newRow("large") << QRegion(QRect(QPoint(), size));
        QTest::newRow("large with a hole") << QRegion(QRect(QPoint(), size)).subtracted({301, 65, 900, 702});
        QTest::newRow("small") << QRegion(10, 20, 200, 300);
        QTest::newRow("nothing") << QRegion();
    }

    void everyPixelOfTheRegionIsPaintedOnce()
    {
        QFETCH(QRegion, region);
        const QImage from = pattern();
        const auto paint = [&](QPainter &painter, const QRegion &part) {
            for (const QRect &rect : part)
                painter.drawImage(rect.topLeft(), from, rect);
        };
        const QPoint moved(7, 3); // the painter's space need not begin in the corner
        const auto painted = [&](const auto &how) {
            QImage to(size, QImage::Format_RGB32);
            to.fill(Qt::white);
            QPainter painter(&to);
            painter.translate(moved);
            how(painter);
            painter.end();
            return to;
        };
        QCOMPARE(painted([&](QPainter &painter) { Bands::draw(painter, region, paint); }),
                 painted([&](QPainter &painter) { paint(painter, region); }));
    }

    // As a widget sees it, whose painter counts in points and draws elsewhere.
    void aChildOfADenseWindowToo()
    {
        struct Child : QWidget {
            using QWidget::QWidget;
            void paintEvent(QPaintEvent *) override
            {
                QPainter painter(this);
                Bands::draw(painter, rect(), [](QPainter &on, const QRegion &part) {
                    for (const QRect &rect : part)
                        on.fillRect(rect, Qt::red);
                });
            }
        };
        QWidget window;
        window.resize(1300, 1000);
        window.setPalette(QPalette(Qt::white));
        Child child(&window);
        child.setGeometry(100, 50, 1100, 900);
        const QImage shown = window.grab().toImage();
        QImage expected(shown.size(), shown.format());
        expected.setDevicePixelRatio(shown.devicePixelRatio());
        expected.fill(window.palette().color(QPalette::Window));
        QPainter(&expected).fillRect(child.geometry(), Qt::red);
        QCOMPARE(shown, expected);
    }
};

QTEST_MAIN(BandsTest)
#include "BandsTest.moc"
