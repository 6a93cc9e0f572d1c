// Times Vellumora from outside, as a hand and an eye would: it presses keys and
// moves the mouse through the X server and watches single pixels of the screen.
// Vellumora has to run already, its shortcut being Shift+Super+X.
//
//   latency shortcut X Y X Y   from the key press to the dimming of both pixels
//   latency start X Y X Y PROGRAM   the same from the second start of the program
//   latency drag X Y WIDTH     one step of a drag that ends WIDTH pixels further
//   latency draw X Y WIDTH     the same for a rectangle drawn above 200 strokes
//   latency loupe X Y WIDTH    the same for the eyedropper's loupe, at two pixels a point
//
// Prints the median and the 95th percentile in milliseconds.
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int rounds = 15;
constexpr int steps = 40;
constexpr auto patience = 5s;
constexpr int strokes = 200;
constexpr std::uint32_t markColour = 0xff3b30;
constexpr std::uint8_t keyA = 38, keyI = 31, keyP = 33, keyR = 27, keyX = 53;
constexpr std::uint8_t keyControl = 37, keyEscape = 9, keyShift = 50, keySuper = 133;

xcb_connection_t *connection = nullptr;
xcb_window_t root = XCB_WINDOW_NONE;

struct Pixel {
    int x, y;
};

void fake(std::uint8_t type, std::uint8_t detail, Pixel at = {0, 0})
{
    xcb_test_fake_input(connection, type, detail, XCB_CURRENT_TIME, root, static_cast<std::int16_t>(at.x),
                        static_cast<std::int16_t>(at.y), 0);
}

void moveTo(Pixel at)
{
    fake(XCB_MOTION_NOTIFY, 0, at);
    xcb_flush(connection);
}

void button(bool down)
{
    fake(down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, 1);
    xcb_flush(connection);
}

std::uint32_t colour(Pixel at)
{
    const auto cookie
        = xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, root, static_cast<std::int16_t>(at.x),
                        static_cast<std::int16_t>(at.y), 1, 1, ~0U);
    const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> reply(
        xcb_get_image_reply(connection, cookie, nullptr), &std::free);
    std::uint32_t value = 0;
    if (reply)
        std::memcpy(&value, xcb_get_image_data(reply.get()), sizeof value);
    return value & 0xffffff;
}

// Milliseconds from the start until the condition holds.
template <typename Condition>
double waited(Clock::time_point start, Condition condition)
{
    while (!condition()) {
        if (Clock::now() - start > patience) {
            std::fputs("latency: nothing happens on the screen\n", stderr);
            std::exit(EXIT_FAILURE);
        }
        std::this_thread::sleep_for(100us);
    }
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void shortcut()
{
    fake(XCB_KEY_PRESS, keyShift);
    fake(XCB_KEY_PRESS, keySuper);
    fake(XCB_KEY_PRESS, keyX);
    xcb_flush(connection);
}

void letGo()
{
    for (const std::uint8_t key : {keyX, keySuper, keyShift})
        fake(XCB_KEY_RELEASE, key);
    xcb_flush(connection);
}

void type(std::uint8_t key)
{
    fake(XCB_KEY_PRESS, key);
    fake(XCB_KEY_RELEASE, key);
    xcb_flush(connection);
}

void escape() { type(keyEscape); }

void startSecond(const char *program)
{
    pid_t child = 0;
    const char *arguments[] = {program, "--capturar", nullptr};
    posix_spawn(&child, program, nullptr, nullptr, const_cast<char **>(arguments), environ);
}

// Begin is what asks for the capture, end what has to be done once it is there.
std::vector<double> timeCapture(Pixel first, Pixel second, const std::function<void()> &begin,
                                const std::function<void()> &end)
{
    const std::uint32_t plain[] = {colour(first), colour(second)};
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        const auto start = Clock::now();
        begin();
        times.push_back(
            waited(start, [&] { return colour(first) != plain[0] && colour(second) != plain[1]; }));
        end();
        std::this_thread::sleep_for(100ms); // the windows come to rest
        escape();
        waited(Clock::now(), [&] { return colour(first) == plain[0] && colour(second) == plain[1]; });
        std::this_thread::sleep_for(100ms);
    }
    return times;
}

// Answers the pixel's colour from before.
std::uint32_t freeze(Pixel watched)
{
    moveTo(watched); // the screen under the pointer gets the keys
    const std::uint32_t plain = colour(watched);
    shortcut();
    waited(Clock::now(), [&] { return colour(watched) != plain; });
    letGo();
    return plain;
}

// Wavy lines from the left to the right, all over the place that is drawn on.
void scribble(Pixel from, int width)
{
    type(keyP);
    for (int i = 0; i < strokes; ++i) {
        const Pixel start{from.x + (i % 10) * width / 10, from.y + 20 + (i / 10) * width / 42};
        moveTo(start);
        button(true);
        for (int step = 1; step <= 20; ++step)
            moveTo({start.x + step * width / 240, start.y + (step % 4) * 10});
        button(false);
        std::this_thread::sleep_for(3ms); // or the server drops moves
    }
    std::this_thread::sleep_for(500ms); // all of them are drawn
}

void selectAll()
{
    fake(XCB_KEY_PRESS, keyControl);
    type(keyA);
    fake(XCB_KEY_RELEASE, keyControl);
}

// Moves in steps and waits for the pixel that lies at an offset from the pointer
// to change its colour.
std::vector<double> timeMoves(Pixel from, int width, Pixel offset)
{
    std::vector<double> times;
    for (int i = 1; i <= steps; ++i) {
        const int reach = 100 + (width - 100) * i / steps;
        const Pixel to{from.x + reach, from.y + reach / 2};
        const Pixel watched{to.x + offset.x, to.y + offset.y};
        const std::uint32_t before = colour(watched);
        if (before == markColour)
            continue; // a stroke is there already
        const auto start = Clock::now();
        moveTo(to);
        times.push_back(waited(start, [&] { return colour(watched) != before; }));
    }
    return times;
}

void leave(Pixel watched, std::uint32_t plain, int escapes)
{
    for (int i = 0; i < escapes; ++i) {
        escape();
        std::this_thread::sleep_for(50ms); // or two of them pass for one that is held
    }
    waited(Clock::now(), [&] { return colour(watched) == plain; });
}

// The corner that follows the pointer brings its own colour.
std::vector<double> timeDraw(Pixel from, int width)
{
    const std::uint32_t plain = freeze(from);
    selectAll();
    scribble(from, width);
    type(keyR);
    moveTo(from);
    button(true);
    const auto times = timeMoves(from, width, {0, 0});
    button(false);
    leave(from, plain, 1);
    return times;
}

// The ring of the glass is white.
std::vector<double> timeLoupe(Pixel from, int width)
{
    const std::uint32_t plain = freeze(from);
    selectAll();
    moveTo(from);
    type(keyI);
    const auto times = timeMoves(from, width, {132, 0});
    leave(from, plain, 2);
    return times;
}

// Brightens with the step that uncovers it: a pixel a little inside the corner
// that is dragged, less than a step, but clear of the handle.
std::vector<double> timeDrag(Pixel from, int width)
{
    const std::uint32_t plain = freeze(from);
    moveTo(from);
    button(true);
    const auto times = timeMoves(from, width, {-24, -12});
    button(false);
    leave(from, plain, 1);
    return times;
}

int report(std::vector<double> times)
{
    std::ranges::sort(times);
    std::printf("%.2f %.2f\n", times[times.size() / 2], times[times.size() * 95 / 100]);
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char **argv)
{
    connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) || argc < 5)
        return EXIT_FAILURE;
    root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const Pixel first{std::atoi(argv[2]), std::atoi(argv[3])};
    if (std::strcmp(argv[1], "draw") == 0)
        return report(timeDraw(first, std::atoi(argv[4])));
    if (std::strcmp(argv[1], "loupe") == 0)
        return report(timeLoupe(first, std::atoi(argv[4])));
    if (std::strcmp(argv[1], "drag") == 0)
        return report(timeDrag(first, std::atoi(argv[4])));
    if (argc < 6)
        return EXIT_FAILURE;
    const Pixel second{std::atoi(argv[4]), std::atoi(argv[5])};
    if (std::strcmp(argv[1], "start") == 0 && argc > 6)
        return report(timeCapture(
            first, second, [&] { startSecond(argv[6]); }, [] { wait(nullptr); }));
    return report(timeCapture(first, second, shortcut, letGo));
}
