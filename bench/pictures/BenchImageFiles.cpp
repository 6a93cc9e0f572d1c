// What a copy of a whole 4K screen costs, beside Qt's own PNG encoder at its
// default. The counter "size" is the PNG's size as a share of that encoder's.
#include "pictures/ImageFiles.h"
#include "pictures/ScreenPictures.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QGuiApplication>

#include <array>

namespace {

constexpr double scale = 2;

struct Screen {
    const char *name;
    QImage picture;
    qsizetype usualBytes = 0;
};

QByteArray usualPng(const QImage &picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    return bytes;
}

void benchUsual(benchmark::State &state, const Screen &screen)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(usualPng(screen.picture));
}

void benchPng(benchmark::State &state, const Screen &screen)
{
    std::optional<QByteArray> png;
    for (auto _ : state)
        benchmark::DoNotOptimize(png = ImageFiles::png(screen.picture, scale));
    state.counters["size"] = double(png->size()) / double(screen.usualBytes);
}

void benchTiff(benchmark::State &state, const Screen &screen)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(ImageFiles::tiff(screen.picture, scale));
}

void benchBoth(benchmark::State &state, const Screen &screen)
{
    std::optional<ImageFiles::Both> files;
    for (auto _ : state)
        benchmark::DoNotOptimize(files = ImageFiles::both(screen.picture, scale));
    state.counters["size"] = double(files->png.size()) / double(screen.usualBytes);
}

void add(const std::string &row, const Screen &screen, void (*bench)(benchmark::State &, const Screen &))
{
    benchmark::RegisterBenchmark((row + "/" + screen.name).c_str(), bench, std::cref(screen))
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv); // for text
    benchmark::Initialize(&argc, argv);
    std::array screens{Screen{"desktop", ScreenPictures::desktop()},
                       Screen{"editor", ScreenPictures::editor()}, Screen{"photo", ScreenPictures::photo()},
                       Screen{"wallpaper", ScreenPictures::wallpaper()},
                       Screen{"noise", ScreenPictures::noise()}};
    for (Screen &screen : screens) {
        screen.usualBytes = usualPng(screen.picture).size();
        add("QImage", screen, benchUsual);
        add("png", screen, benchPng);
        add("tiff", screen, benchTiff);
        add("both", screen, benchBoth);
    }
    benchmark::RunSpecifiedBenchmarks();
}
