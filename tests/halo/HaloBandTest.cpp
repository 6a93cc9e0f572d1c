#include "halo/HaloBand.h"

#include "support/HaloReference.h"

#include <QPainter>
#include <QTest>

#include <cmath>

namespace {

QImage ground(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(qRgb(40, 50, 60));
    return image;
}

QImage painted(const HaloBand::Shape &shape, QSize size, double turn)
{
    QImage image = ground(size);
    QPainter painter(&image);
    HaloColors::Table colors;
    HaloColors::fill(colors, turn);
    const HaloBand band(shape);
    HaloTile tile;
    for (const QRect &rect : band.area(image.rect())) {
        band.fill(tile, rect);
        tile.paint(painter, rect, colors);
    }
    return image;
}

int difference(QRgb a, QRgb b)
{
    return std::max(
        {std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

struct Likeness {
    int worst = 0;
    double mean = 0;
    int visiblyOff = 0; // pixels more than eight shades apart
};

Likeness compare(const QImage &a, const QImage &b)
{
    Likeness result;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const int off = difference(a.pixel(x, y), b.pixel(x, y));
            result.worst = std::max(result.worst, off);
            result.mean += off;
            result.visiblyOff += off > 8;
        }
    result.mean /= a.width() * a.height();
    return result;
}

// In points on a screen of 400 × 300 of them.
HaloBand::Shape shapeAt(double scale, const QRectF &points, double swell = 1)
{
    const QRectF pixels(points.topLeft() * scale, points.size() * scale);
    return {pixels, pixels.toAlignedRect(), scale, swell, HaloMotion::restOpacity};
}

} // namespace

class HaloBandTest : public QObject {
    Q_OBJECT

private slots:
    void looksAsQtWouldPaintIt_data()
    {
        QTest::addColumn<double>("scale");
        QTest::addColumn<QRectF>("selection");
        QTest::addColumn<double>("swell");
        QTest::addColumn<double>("turn");
        for (const double scale : {1.0, 1.25, 2.0}) {
            const auto name
                = [&](const char *what) { return QString("%1 at %2").arg(what).arg(scale).toUtf8(); };
            QTest::newRow(name("at rest")) << scale << QRectF(100, 80, 180, 120) << 1.0 << 0.0;
            QTest::newRow(name("turned, tall")) << scale << QRectF(160, 60, 44, 160) << 1.0 << 0.3;
            QTest::newRow(name("flashing")) << scale << QRectF(120, 100, 160, 100) << 1.35 << 0.8;
            QTest::newRow(name("over the edge")) << scale << QRectF(0, 0, 400, 284) << 1.0 << 0.5;
            QTest::newRow(name("tiny, flashing")) << scale << QRectF(200, 140, 4, 4) << 1.6 << 0.0;
        }
    }
    void looksAsQtWouldPaintIt()
    {
        QFETCH(double, scale);
        QFETCH(QRectF, selection);
        QFETCH(double, swell);
        QFETCH(double, turn);
        const QSize size = (QSizeF(400, 300) * scale).toSize();
        const HaloBand::Shape shape = shapeAt(scale, selection, swell);
        QImage reference = ground(size);
        drawReferenceHalo(reference, shape, turn);
        const Likeness likeness = compare(painted(shape, size, turn), reference);
        // Qt rounds its joins with polygons and looks colours up in a
        // coarser table.
        QVERIFY2(likeness.mean < 1, qPrintable(QString::number(likeness.mean)));
        QVERIFY2(likeness.worst <= 32, qPrintable(QString::number(likeness.worst)));
        QVERIFY2(likeness.visiblyOff < size.width() * size.height() / 1000,
                 qPrintable(QString::number(likeness.visiblyOff)));
    }

    // Between two pixels the line is blurred, but never on the inside.
    void noSelectedPixelIsTinted()
    {
        const QSize size(400, 300);
        for (const double swell : {1.0, 1.2, 1.6}) {
            const HaloBand::Shape shape = shapeAt(1, {100.4, 80.6, 180.3, 120.2}, swell);
            const QImage image = painted(shape, size, 0.1);
            QCOMPARE(image.copy(shape.hole), ground(shape.hole.size()));
            QVERIFY(difference(image.pixel(99, 150), qRgb(40, 50, 60)) > 60);
        }
    }

    void theLineIsCrispAndOpaque()
    {
        const HaloBand::Shape shape = shapeAt(2, {100, 80, 180, 120});
        const QImage image = painted(shape, {800, 600}, 0);
        // Straight above the middle the first colour, one shade off at most.
        const QRgb first = qRgb(79, 125, 255);
        for (const int above : {1, 2, 3, 4})
            QVERIFY(difference(image.pixel(380, 160 - above), first) <= 1);
        QVERIFY(difference(image.pixel(380, 155), first) > 5);
        QVERIFY(difference(image.pixel(197, 157), image.pixel(196, 156)) <= 1); // and so are its corners
    }

    void theAreaIsAllThatIsTouched()
    {
        const HaloBand::Shape shape = shapeAt(1, {150, 110, 100, 80}, 1.6);
        const QRegion area = HaloBand(shape).area({0, 0, 400, 300});
        QImage beyond = ground({400, 300});
        QPainter painter(&beyond);
        HaloColors::Table colors;
        HaloColors::fill(colors, 0);
        HaloTile all;
        HaloBand(shape).fill(all, beyond.rect());
        for (const QRect &rect : QRegion(beyond.rect()) - area - shape.hole)
            all.paint(painter, rect, colors);
        painter.end();
        QCOMPARE(beyond, ground({400, 300}));
    }
};

QTEST_GUILESS_MAIN(HaloBandTest)
#include "HaloBandTest.moc"
