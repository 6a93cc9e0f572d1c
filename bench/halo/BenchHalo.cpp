// What the glow costs on a whole 4K screen: a frame of its turning, a frame of a
// pulse and the band of a new selection, beside the same picture painted stroke
// by stroke and beside copying the screen's bytes.
#include "halo/HaloBand.h"
#include "halo/HaloColors.h"
#include "halo/HaloDrift.h"
#include "halo/HaloMotion.h"
#include "support/HaloReference.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include <cstring>
#include <vector>

namespace {

const QSize pixels(3840, 2160);

// As large as it gets with the whole band on the screen.
HaloBand::Shape largest(double swell = 1)
{
    const QRect hole = QRect({}, pixels).adjusted(90, 90, -90, -90);
    return {QRectF(hole), hole, 2, swell, HaloMotion::restOpacity};
}

void fill(std::vector<HaloTile> &tiles, const HaloBand &band)
{
    const QRegion area = band.area(QRect({}, pixels));
    tiles.resize(std::size_t(area.rectCount()));
    std::size_t i = 0;
    for (const QRect &rect : area)
        band.fill(tiles[i++], rect);
}

void blend(QImage &onto, const std::vector<HaloTile> &tiles, double turn)
{
    HaloColors::Table colors;
    HaloColors::fill(colors, turn);
    QPainter painter(&onto);
    for (const HaloTile &tile : tiles)
        tile.paint(painter, tile.pixels, colors);
}

void frame(benchmark::State &state)
{
    QImage canvas(pixels, QImage::Format_RGB32);
    std::vector<HaloTile> tiles;
    fill(tiles, HaloBand(largest()));
    double turn = 0;
    for (auto _ : state)
        blend(canvas, tiles, turn += 0.002);
}

// As it stands for long: with the ground known, and only as much of it as a
// frame at thirty a second changes visibly.
void turning(benchmark::State &state)
{
    QImage canvas(pixels, QImage::Format_RGB32);
    canvas.fill(Qt::darkBlue);
    const HaloBand band(largest());
    std::vector<HaloTile> tiles;
    fill(tiles, band);
    for (HaloTile &tile : tiles)
        tile.setGround(canvas.copy(tile.pixels));
    HaloColors::Table colors;
    HaloDrift drift;
    double turn = 0;
    for (auto _ : state) {
        turn += 1.0 / 210;
        HaloColors::fill(colors, turn);
        QPainter painter(&canvas);
        for (const QRect &part : band.area(canvas.rect(), drift.catchUp(turn)))
            for (const HaloTile &tile : tiles)
                tile.paint(painter, part, colors);
    }
}

void build(benchmark::State &state)
{
    std::vector<HaloTile> tiles;
    for (auto _ : state) {
        fill(tiles, HaloBand(largest()));
        benchmark::ClobberMemory();
    }
}

void pulse(benchmark::State &state)
{
    QImage canvas(pixels, QImage::Format_RGB32);
    const QRect hole(1200, 700, 1400, 800);
    const HaloBand band({QRectF(hole), hole, 2, 1.4, 1});
    std::vector<HaloTile> tiles;
    for (auto _ : state) {
        fill(tiles, band);
        blend(canvas, tiles, 0.3);
    }
}

void reference(benchmark::State &state)
{
    QImage canvas(pixels, QImage::Format_RGB32);
    for (auto _ : state)
        drawReferenceHalo(canvas, largest(), 0.3);
}

void copy(benchmark::State &state)
{
    QImage from(pixels, QImage::Format_RGB32);
    from.fill(Qt::red);
    QImage to(pixels, QImage::Format_RGB32);
    for (auto _ : state) {
        std::memcpy(to.bits(), from.constBits(), std::size_t(from.sizeInBytes()));
        benchmark::ClobberMemory();
    }
}

} // namespace

BENCHMARK(frame)->Name("a frame of the glow")->Unit(benchmark::kMillisecond);
BENCHMARK(turning)->Name("a frame of its turning")->Unit(benchmark::kMillisecond);
BENCHMARK(build)->Name("the band of a new selection")->Unit(benchmark::kMillisecond);
BENCHMARK(pulse)->Name("a frame of a pulse")->Unit(benchmark::kMillisecond);
BENCHMARK(reference)->Name("Qt's strokes")->Unit(benchmark::kMillisecond);
BENCHMARK(copy)->Name("memcpy")->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
