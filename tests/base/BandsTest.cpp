#include "base/Bands.h"
#include "base/PixelRows.h"
#include "base/Raster.h"

#include <QImage>
#include <QPainter>
#include <QTest>
#include <QWidget>

#include <algorithm>

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

void forRows(const QRegion &part, const auto &row)
{
    for (const QRect &rect : part)
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            row(rect.left(), y, rect.width());
}

const QRegion sampleRegion = QRegion(QRect(QPoint(), size)).subtracted({300, 64, 900, 702});
const QRect sampleSpot(400, 20, 600, 200);

// Stripes on the region, the pattern over a part of them.
void writeSample(QPainter &painter)
{
    const QImage from = pattern();
    Bands::fill(painter, sampleRegion, [&](const Raster &raster, const QRegion &part) {
        forRows(part,
                [&](int x, int y, int width) { std::fill_n(raster.at(x, y), width, qRgb(200, y % 256, 0)); });
    });
    Bands::blend(painter, sampleSpot, [&](const Raster &raster, const QRegion &part) {
        forRows(part, [&](int x, int y, int width) {
            PixelRows::blend(raster.at(x, y), reinterpret_cast<const QRgb *>(from.constScanLine(y)) + x,
                             width);
        });
    });
}

// The same with a painter.
void paintSample(QPainter &painter)
{
    for (const QRect &rect : sampleRegion)
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            painter.fillRect(rect.left(), y, rect.width(), 1, QColor(200, y % 256, 0));
    painter.drawImage(sampleSpot.topLeft(), pattern(), sampleSpot);
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
        const auto paint = [&](QPainter &painter) {
            for (const QRect &rect : region)
                painter.drawImage(rect.topLeft(), from, rect);
        };
        const auto blend = [&](QPainter &painter) {
            Bands::blend(painter, region, [&](const Raster &raster, const QRegion &part) {
                forRows(part, [&](int x, int y, int width) {
                    PixelRows::blend(raster.at(x, y),
                                     reinterpret_cast<const QRgb *>(from.constScanLine(y)) + x, width);
                });
            });
        };
        QPointF moved; // the painter's space need not begin in the corner, nor on a whole pixel
        const auto painted = [&](const auto &how) {
            QImage to(size, QImage::Format_RGB32);
            to.fill(Qt::white);
            QPainter painter(&to);
            painter.translate(moved);
            how(painter);
            painter.end();
            return to;
        };
        for (const QPointF by : {QPointF(7, 3), QPointF(6.5, -2.5)}) {
            moved = by;
            QCOMPARE(painted(blend), painted(paint));
        }
    }

    // Whatever there is to write on, what is filled and blended looks as painted.
    void pixelsAreWrittenWhereAPainterWouldPaint_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<double>("scale");
        QTest::newRow("a window's picture") << QImage::Format_RGB32 << 1.0;
        QTest::newRow("one with opacity") << QImage::Format_ARGB32_Premultiplied << 1.0;
        QTest::newRow("one of few colours") << QImage::Format_RGB16 << 1.0;
        QTest::newRow("one that counts otherwise") << QImage::Format_RGB32 << 0.5;
    }
    void pixelsAreWrittenWhereAPainterWouldPaint()
    {
        QFETCH(QImage::Format, format);
        QFETCH(double, scale);
        const auto picture = [&](const auto &paintOn) {
            QImage to(size, format);
            to.fill(Qt::white);
            QPainter painter(&to);
            painter.translate(8, 4);
            painter.scale(scale, scale);
            paintOn(painter);
            painter.end();
            return to;
        };
        const QImage written = picture(writeSample);
        const QImage expected = picture(paintSample);
        if (scale == 1)
            QCOMPARE(written, expected);
        // Qt scales each piece by itself, so rows at their borders may differ.
        QCOMPARE(written.pixel(100, 40), expected.pixel(100, 40));
        QCOMPARE(written.pixel(700, 420), expected.pixel(700, 420));
        QCOMPARE(written.pixel(400, 300), expected.pixel(400, 300));
    }

    // Rounded as Qt rounds, to the bit: one pixel of a mark may be put there by either.
    void rowsAreBlendedAsQtBlends()
    {
        constexpr int count = 256;
        QImage from(count, count, QImage::Format_ARGB32_Premultiplied);
        QImage over(count, count, QImage::Format_RGB32);
        for (int y = 0; y < count; ++y)
            for (int x = 0; x < count; ++x) {
                from.setPixel(x, y, qPremultiply(qRgba(x, 255 - x, 99, y)));
                over.setPixel(x, y, qRgb(y, x, (7 * x + y) % count));
            }
        QImage blended = over;
        QImage dimmed(over.size(), over.format());
        for (int y = 0; y < count; ++y) {
            const auto *row = reinterpret_cast<const QRgb *>(from.constScanLine(y));
            PixelRows::blend(reinterpret_cast<QRgb *>(blended.scanLine(y)), row, count);
            PixelRows::copyDimmed(reinterpret_cast<QRgb *>(dimmed.scanLine(y)),
                                  reinterpret_cast<const QRgb *>(over.constScanLine(y)), count, 255 - 140);
        }
        QImage expected = over;
        QPainter(&expected).drawImage(0, 0, from);
        QCOMPARE(blended, expected);
        expected = over;
        QPainter(&expected).fillRect(over.rect(), QColor(0, 0, 0, 140));
        QCOMPARE(dimmed, expected);
    }

    // As a widget sees it, whose painter counts in points and draws elsewhere.
    void aChildOfADenseWindowToo()
    {
        struct Child : QWidget {
            using QWidget::QWidget;
            void paintEvent(QPaintEvent *) override
            {
                QPainter painter(this);
                const double scale = devicePixelRatioF();
                painter.scale(1 / scale, 1 / scale); // from here on in pixels
                const QRect all({}, (QSizeF(size()) * scale).toSize());
                Bands::fill(painter, all, [](const Raster &raster, const QRegion &part) {
                    forRows(part, [&](int x, int y, int width) {
                        std::fill_n(raster.at(x, y), width, qRgb(255, 0, 0));
                    });
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
