#include "overlay/canvas/TilePicture.h"
#include "base/Raster.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

// A painter is the measure: it draws what tiles share with other marks.
class TilePictureTest : public QObject {
    Q_OBJECT

    QRandomGenerator random{3};

    QImage noise(QImage::Format format)
    {
        QImage image(TileGrid::side, TileGrid::side, QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, random.generate());
        return image.convertToFormat(format);
    }

    static QImage shown(const TilePicture &tile, QImage on)
    {
        tile.blend(Raster(on), {}, on.rect());
        return on;
    }

private slots:
    void aPictureThatWasTakenOverFadesAsIfItWerePainted_data()
    {
        QTest::addColumn<double>("opacity");
        for (const double opacity : {0.1, 0.35, 0.5, 0.7, 1.0})
            QTest::newRow(qPrintable(QString::number(opacity))) << opacity;
    }
    void aPictureThatWasTakenOverFadesAsIfItWerePainted()
    {
        QFETCH(double, opacity);
        const QImage screen = noise(QImage::Format_RGB32);
        const QImage stroke = noise(QImage::Format_ARGB32_Premultiplied);
        TilePicture painted;
        {
            QPainter painter(&painted.image());
            painter.setOpacity(opacity);
            painter.drawImage(0, 0, stroke);
        }
        painted.measure();
        TilePicture taken;
        taken.take(stroke, opacity);
        QCOMPARE(shown(taken, screen), shown(painted, screen));
        taken.measure();
        QCOMPARE(shown(taken, screen), shown(painted, screen));
        QCOMPARE(std::as_const(taken.image()), std::as_const(painted.image()));
    }

    // Much that is blank or of one of two colours, also where it begins within a stretch.
    void whatIsPackedIsWhatWasDrawn()
    {
        const QImage screen = noise(QImage::Format_RGB32);
        TilePicture tile;
        for (int round = 0; round < 40; ++round) {
            QPainter painter(&tile.image());
            painter.setRenderHint(QPainter::Antialiasing, round % 2 == 0);
            painter.setPen(
                QPen(round % 3 == 0 ? QColor(0, 90, 255, 120) : QColor(200, 30, 40), 1 + round % 30));
            const auto anywhere = [this] { return QPointF(random.bounded(128), random.bounded(128)); };
            painter.drawLine(anywhere(), anywhere());
            painter.end();
            const QImage drawn = tile.image().copy();
            tile.measure();
            QImage expected = screen;
            QPainter(&expected).drawImage(0, 0, drawn);
            QCOMPARE(shown(tile, screen), expected);
            QCOMPARE(std::as_const(tile.image()), drawn);
            if (round % 5 == 4)
                tile.clear();
        }
    }
};

QTEST_GUILESS_MAIN(TilePictureTest)
#include "TilePictureTest.moc"
