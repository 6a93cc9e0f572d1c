// What reading every screen costs on the display it runs on, beside copying as
// many bytes from one place in memory to another and beside Qt's own
// way of reading a screen.
#include "platform/wayland/Connection.h"
#include "platform/wayland/KWinGrabber.h"
#include "platform/wayland/PortalGrabber.h"
#include "platform/wayland/WaylandScreenGrabber.h"
#include "platform/x11/X11ScreenGrabber.h"
#include "platform/x11/X11WindowList.h"
#include "platform/x11/Xcb.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPixmap>

#include <chrono>
#include <cstring>
#include <functional>
#include <memory>
#include <thread>

using namespace std::chrono_literals;

namespace {

std::unique_ptr<ScreenGrabber> makeGrabber()
{
    if (QGuiApplication::platformName() == u"xcb")
        return std::make_unique<X11ScreenGrabber>();
    return makeWaylandScreenGrabber(Connection::open());
}

std::vector<ScreenShot> grabbed(ScreenGrabber &grabber)
{
    return QCoro::waitFor(grabber.grabScreens()).value_or(std::vector<ScreenShot>());
}

// Between captures the pictures go, which is the end of one and no part of the next.
// Some compositors copy when they draw, and they draw no faster than the monitor:
// nobody captures twice in the time of a frame.
void rest(benchmark::State &state, const std::function<void()> &end)
{
    state.PauseTiming();
    end();
    std::this_thread::sleep_for(50ms);
    state.ResumeTiming();
}

// The pictures are looked at as well: the first look may cost as much as the copy.
void capture(benchmark::State &state)
{
    const auto grabber = makeGrabber();
    std::vector<ScreenShot> pictures;
    for (auto _ : state) {
        rest(state, [&] { pictures.clear(); });
        pictures = grabbed(*grabber);
        for (const ScreenShot &shot : pictures)
            for (int y = 0; y < shot.image.height(); ++y)
                benchmark::DoNotOptimize(shot.image.constScanLine(y)[0]);
    }
}

// The slower ways of a Wayland session, where there are such.
void captureBy(benchmark::State &state, ScreenSource &source)
{
    std::vector<ScreenShot> pictures;
    for (auto _ : state) {
        rest(state, [&] { pictures.clear(); });
        auto result = QCoro::waitFor(source.grab());
        if (!result.shots)
            return state.SkipWithError(qPrintable(result.problem));
        pictures = std::move(*result.shots);
    }
}

void kwin(benchmark::State &state)
{
    KWinGrabber grabber;
    captureBy(state, grabber);
}

void portal(benchmark::State &state)
{
    PortalGrabber grabber(Connection::open());
    captureBy(state, grabber);
}

void copy(benchmark::State &state)
{
    const auto grabber = makeGrabber();
    const auto shots = grabbed(*grabber);
    std::vector<QImage> copies;
    for (const ScreenShot &shot : shots)
        copies.push_back(shot.image.copy());
    for (auto _ : state) {
        rest(state, [] {}); // a copy made as seldom as a capture, of memory that has gone cold
        for (std::size_t i = 0; i < shots.size(); ++i) {
            std::memcpy(copies[i].bits(), shots[i].image.constBits(),
                        static_cast<std::size_t>(copies[i].sizeInBytes()));
            benchmark::ClobberMemory();
        }
    }
}

void toolkit(benchmark::State &state)
{
    for (auto _ : state)
        for (QScreen *screen : QGuiApplication::screens())
            benchmark::DoNotOptimize(screen->grabWindow(0).toImage());
}

// Of another program, one above the other.
class FiftyWindows {
public:
    FiftyWindows()
    {
        auto *c = m_connection.get();
        const xcb_screen_t &screen = *xcb_setup_roots_iterator(xcb_get_setup(c)).data;
        for (std::int16_t i = 0; i < 50; ++i) {
            const xcb_window_t window = xcb_generate_id(c);
            xcb_create_window(c, XCB_COPY_FROM_PARENT, window, screen.root, 20 * i, 20 * i, 400, 300, 0,
                              XCB_WINDOW_CLASS_INPUT_OUTPUT, screen.root_visual, 0, nullptr);
            xcb_map_window(c, window);
        }
        xcb_flush(c);
        std::this_thread::sleep_for(1s); // in which the window manager frames them
    }

private:
    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_connection{xcb_connect(nullptr, nullptr),
                                                                              xcb_disconnect};
};

// Until the server has answered everything, which the capture does not wait for.
void windows(benchmark::State &state)
{
    if (QGuiApplication::platformName() != u"xcb")
        return state.SkipWithError("only on X11");
    const FiftyWindows others;
    X11WindowList list;
    for (auto _ : state) {
        list.freeze();
        Xcb::sync();
        list.forget();
    }
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (auto *bench :
         {benchmark::RegisterBenchmark("capture", capture), benchmark::RegisterBenchmark("memcpy", copy),
          benchmark::RegisterBenchmark("grabWindow", toolkit), benchmark::RegisterBenchmark("kwin", kwin),
          benchmark::RegisterBenchmark("portal", portal), benchmark::RegisterBenchmark("windows", windows)})
        bench->UseRealTime()->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
