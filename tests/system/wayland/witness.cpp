// A window of another program on a Wayland desktop. Every pixel tells where it is: a picture that is one
// pixel off, or one that was scaled, differs everywhere.
//
//   witness OUTPUT [full]   for the output of this name, which it fills if asked to; else the compositor says
//   where it goes
//
// Says on standard output when it is painted and with which size in pixels, which keys it gets, in the
// kernel's codes, and when the keyboard comes and goes.
#include "Globals.h"

#include "xdg-shell-client.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <list>
#include <string>

namespace {

struct Output {
    wl_output *proxy;
    std::string name, size;
    int scale = 1;
};

struct Window {
    wl_display *display;
    wl_shm *memory;
    wl_surface *surface;
    const Output &output;
    int width = 300, height = 200; // points
};

void say(const char *what, int first, int second)
{
    std::printf("%s %d %d\n", what, first, second);
    std::fflush(stdout);
}

std::uint32_t colourAt(int x, int y)
{
    return static_cast<std::uint32_t>(((x * 7) & 0xff) << 16 | ((y * 5) & 0xff) << 8
                                      | ((x * 3 + y * 11) & 0xff));
}

wl_buffer *pattern(wl_shm *memory, int width, int height)
{
    const std::size_t bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    const int file = memfd_create("witness", MFD_CLOEXEC);
    if (ftruncate(file, static_cast<off_t>(bytes)) != 0)
        std::exit(EXIT_FAILURE);
    auto *pixels
        = static_cast<std::uint32_t *>(mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            *pixels++ = colourAt(x, y);
    wl_shm_pool *pool = wl_shm_create_pool(memory, file, static_cast<int>(bytes));
    wl_buffer *buffer = wl_shm_pool_create_buffer(pool, 0, width, height, width * 4, WL_SHM_FORMAT_XRGB8888);
    wl_shm_pool_destroy(pool);
    close(file);
    return buffer;
}

void paint(Window &window)
{
    const int scale = window.output.scale;
    wl_buffer *buffer = pattern(window.memory, window.width * scale, window.height * scale);
    wl_surface_set_buffer_scale(window.surface, scale);
    wl_surface_attach(window.surface, buffer, 0, 0);
    wl_surface_damage_buffer(window.surface, 0, 0, window.width * scale, window.height * scale);
    wl_surface_commit(window.surface);
    say("painted", window.width * scale, window.height * scale);
}

constexpr wl_output_listener outputEvents{
    [](void *, wl_output *, int, int, int, int, int, const char *, const char *, int) {},
    [](void *data, wl_output *, std::uint32_t, int width, int height, int) {
        static_cast<Output *>(data)->size = std::to_string(width) + "x" + std::to_string(height);
    },
    [](void *, wl_output *) {},
    [](void *data, wl_output *, int scale) { static_cast<Output *>(data)->scale = scale; },
    [](void *data, wl_output *, const char *name) { static_cast<Output *>(data)->name = name; },
    [](void *, wl_output *, const char *) {},
};

constexpr xdg_wm_base_listener shellEvents{
    [](void *, xdg_wm_base *shell, std::uint32_t serial) { xdg_wm_base_pong(shell, serial); },
};

constexpr xdg_toplevel_listener toplevelEvents{
    [](void *data, xdg_toplevel *, int width, int height, wl_array *) {
        if (width > 0 && height > 0) {
            static_cast<Window *>(data)->width = width;
            static_cast<Window *>(data)->height = height;
        }
    },
    [](void *, xdg_toplevel *) { std::exit(EXIT_SUCCESS); },
    [](void *, xdg_toplevel *, int, int) {},
    [](void *, xdg_toplevel *, wl_array *) {},
};

constexpr xdg_surface_listener surfaceEvents{
    [](void *data, xdg_surface *surface, std::uint32_t serial) {
        xdg_surface_ack_configure(surface, serial);
        paint(*static_cast<Window *>(data));
    },
};

constexpr wl_keyboard_listener keyEvents{
    [](void *, wl_keyboard *, std::uint32_t, int map, std::uint32_t) { close(map); },
    [](void *, wl_keyboard *, std::uint32_t, wl_surface *, wl_array *) { say("keyboard", 1, 0); },
    [](void *, wl_keyboard *, std::uint32_t, wl_surface *) { say("keyboard", 0, 0); },
    [](void *, wl_keyboard *, std::uint32_t, std::uint32_t, std::uint32_t key, std::uint32_t state) {
        if (state == WL_KEYBOARD_KEY_STATE_PRESSED)
            say("key", static_cast<int>(key), 0);
    },
    [](void *, wl_keyboard *, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
    [](void *, wl_keyboard *, int, int) {},
};

// One without a proxy when there is no such output.
const Output &findOutput(wl_display *display, const std::string &wanted)
{
    static std::list<Output> all;
    for (auto *proxy : bindAll<wl_output>(display, wl_output_interface, 2, 4)) {
        all.push_back({.proxy = proxy, .name = {}, .size = {}});
        wl_output_add_listener(proxy, &outputEvents, &all.back());
    }
    wl_display_roundtrip(display);
    all.push_back({.proxy = nullptr, .name = wanted, .size = {}});
    return *std::ranges::find_if(
        all, [&](const Output &output) { return output.name == wanted || output.size == wanted; });
}

void listenToKeys(wl_display *display)
{
    auto *seat = bindGlobal<wl_seat>(display, wl_seat_interface, 1);
    if (seat)
        wl_keyboard_add_listener(wl_seat_get_keyboard(seat), &keyEvents, nullptr);
}

} // namespace

int main(int argc, char **argv)
{
    wl_display *display = wl_display_connect(nullptr);
    if (argc < 2 || !display)
        return EXIT_FAILURE;
    auto *compositor = bindGlobal<wl_compositor>(display, wl_compositor_interface, 4);
    auto *shell = bindGlobal<xdg_wm_base>(display, xdg_wm_base_interface, 1);
    auto *memory = bindGlobal<wl_shm>(display, wl_shm_interface, 1);
    const Output &output = findOutput(display, argv[1]);
    if (!compositor || !shell || !memory || !output.proxy)
        return EXIT_FAILURE;
    Window window{display, memory, wl_compositor_create_surface(compositor), output};
    xdg_wm_base_add_listener(shell, &shellEvents, nullptr);
    xdg_surface *surface = xdg_wm_base_get_xdg_surface(shell, window.surface);
    xdg_surface_add_listener(surface, &surfaceEvents, &window);
    xdg_toplevel *toplevel = xdg_surface_get_toplevel(surface);
    xdg_toplevel_add_listener(toplevel, &toplevelEvents, &window);
    xdg_toplevel_set_title(toplevel, ("witness-" + std::string(argv[1])).c_str());
    if (argc > 2)
        xdg_toplevel_set_fullscreen(toplevel, output.proxy);
    wl_surface_commit(window.surface);
    listenToKeys(display);
    while (wl_display_dispatch(display) >= 0) {
    }
    return EXIT_SUCCESS;
}
