#include "overlay/canvas/MovedInk.h"

#include "base/Raster.h"
#include "overlay/canvas/TilePicture.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

#include <map>

// Drawing all marks anew where they are now is the measure.
class MovedInkTest : public QObject {
    Q_OBJECT

    static constexpr QRect screenArea{0, 0, 400, 300};
    QRandomGenerator random{11};

    QImage noise()
    {
        QImage image(screenArea.size(), QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, random.generate()); // whatever there is instead of the opacity
        return image;
    }

    // Areas of one colour, opaque and not, soft edges, and much that is blank.
    std::map<TileGrid::Cell, TilePicture> tiles()
    {
        std::map<TileGrid::Cell, TilePicture> made;
        for (int row = -3; row < 6; ++row)
            for (int column = -4; column < 7; ++column) {
                TilePicture &tile = made[{row, column}];
                if (random.bounded(4) == 0)
                    continue; // none
                QPainter painter(&tile.image());
                painter.setRenderHint(QPainter::Antialiasing);
                for (int i = random.bounded(5); i >= 0; --i) {
                    const QColor color = random.bounded(2) ? QColor(200, 30, 40) : QColor(0, 90, 255, 120);
                    painter.setPen(QPen(color, 1 + random.bounded(40)));
                    painter.drawLine(QLineF(random.bounded(128), random.bounded(128), random.bounded(128),
                                            random.bounded(128)));
                }
                painter.end();
                tile.measure();
            }
        return made;
    }

    static void drawAll(QImage &on, const TileGrid &grid, const std::map<TileGrid::Cell, TilePicture> &tiles)
    {
        for (const auto &[cell, tile] : tiles)
            tile.blend(Raster(on), grid.pixels(cell).topLeft(), screenArea);
    }

    QRect somewhere()
    {
        const QRect rect(QPoint(random.bounded(-50, 400), random.bounded(-50, 300)),
                         QSize(1 + random.bounded(300), 1 + random.bounded(250)));
        return rect & screenArea;
    }

private slots:
    void onlyAPartLooksAsIfAllWereDrawnAnew()
    {
        const ViewSpace space(screenArea.size());
        const QImage screen = noise();
        const QImage opaque = PixelRows::part(screen, screenArea);
        for (int round = 0; round < 150; ++round) {
            const auto tiles = this->tiles();
            TileGrid grid(space);
            const auto moveBy = [&](int farthest) {
                const QPoint way(random.bounded(-farthest, farthest + 1),
                                 random.bounded(-farthest, farthest + 1));
                grid.moveBy(way);
                return way;
            };
            const auto drawnAnew = [&] {
                QImage image = opaque;
                for (const auto &[cell, tile] : tiles)
                    tile.blend(Raster(image), grid.pixels(cell).topLeft(), screenArea);
                return image;
            };
            moveBy(60);
            QImage shown = drawnAnew();
            const QPoint way = moveBy(round % 3 == 0 ? 300 : 12);
            const QRegion where = QRegion(somewhere()) - somewhere();
            QImage expected = shown;
            QPainter painter(&expected);
            painter.setClipRegion(where);
            painter.drawImage(0, 0, drawnAnew());
            painter.end();

            MovedInk ink(grid, where.boundingRect(), way);
            const auto [first, last] = ink.range();
            for (const auto &[cell, tile] : tiles)
                if (cell.first >= first.first && cell.first <= last.first && cell.second >= first.second
                    && cell.second <= last.second)
                    ink.add(cell, tile);
            ink.draw(Raster(shown), screen, where);
            QCOMPARE(shown, expected);
        }
    }
};

QTEST_GUILESS_MAIN(MovedInkTest)
#include "MovedInkTest.moc"
