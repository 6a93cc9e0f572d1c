// What reading every screen costs on the display it runs on, beside copying as
// many bytes from one place in memory to another and beside the toolkit's own
// way of reading a screen.
#include "platform/x11/X11ScreenGrabber.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPixmap>

#include <cstring>

namespace {

std::vector<ScreenShot> grabbed(X11ScreenGrabber &grabber) { return *QCoro::waitFor(grabber.grabScreens()); }

void capture(benchmark::State &state)
{
    X11ScreenGrabber grabber;
    for (auto _ : state)
        benchmark::DoNotOptimize(grabbed(grabber));
}

void copy(benchmark::State &state)
{
    X11ScreenGrabber grabber;
    const auto shots = grabbed(grabber);
    std::vector<QImage> copies;
    for (const ScreenShot &shot : shots)
        copies.push_back(shot.image.copy());
    for (auto _ : state)
        for (std::size_t i = 0; i < shots.size(); ++i) {
            std::memcpy(copies[i].bits(), shots[i].image.constBits(),
                        static_cast<std::size_t>(copies[i].sizeInBytes()));
            benchmark::ClobberMemory();
        }
}

void toolkit(benchmark::State &state)
{
    for (auto _ : state)
        for (QScreen *screen : QGuiApplication::screens())
            benchmark::DoNotOptimize(screen->grabWindow(0).toImage());
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (auto *bench :
         {benchmark::RegisterBenchmark("capture", capture), benchmark::RegisterBenchmark("memcpy", copy),
          benchmark::RegisterBenchmark("grabWindow", toolkit)})
        bench->UseRealTime()->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
