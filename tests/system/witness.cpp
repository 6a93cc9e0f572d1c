// A window of another program: shows a picture in which every pixel tells where
// it is, and says on standard output which keys and focus it gets.
//
//   witness X Y WIDTH HEIGHT [DELAY]   DELAY: milliseconds it takes to repaint
//   witness --grab MODIFIERS KEYCODE   takes a global shortcut for itself
//   witness --keyboard                 says whether somebody holds the keyboard, and ends
//   witness --pointer                  the same of the pointer
#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

namespace {

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
using Event = std::unique_ptr<xcb_generic_event_t, Free>;

void say(const char *what, unsigned value)
{
    std::printf("%s %u\n", what, value);
    std::fflush(stdout);
}

std::uint32_t colourAt(std::uint32_t x, std::uint32_t y)
{
    return ((x * 7) & 0xff) << 16 | ((y * 5) & 0xff) << 8 | ((x * 3 + y * 11) & 0xff);
}

xcb_atom_t atom(xcb_connection_t *c, const char *name)
{
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(xcb_intern_atom_reply(
        c, xcb_intern_atom(c, 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr));
    return reply->atom;
}

xcb_window_t openWindow(xcb_connection_t *c, const xcb_screen_t &screen, const int (&place)[4])
{
    const xcb_window_t window = xcb_generate_id(c);
    const std::uint32_t events
        = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_create_window(c, XCB_COPY_FROM_PARENT, window, screen.root, static_cast<std::int16_t>(place[0]),
                      static_cast<std::int16_t>(place[1]), static_cast<std::uint16_t>(place[2]),
                      static_cast<std::uint16_t>(place[3]), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      screen.root_visual, XCB_CW_EVENT_MASK, &events);
    const char name[] = "witness";
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        sizeof name - 1, name);
    // A position that a window manager keeps, and no frame around it.
    std::uint32_t hints[18] = {1 | 2};
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS,
                        32, 18, hints);
    const xcb_atom_t motif = atom(c, "_MOTIF_WM_HINTS");
    const std::uint32_t frameless[5] = {2, 0, 0, 0, 0};
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, motif, motif, 32, 5, frameless);
    xcb_map_window(c, window);
    return window;
}

xcb_pixmap_t paintPattern(xcb_connection_t *c, const xcb_screen_t &screen, xcb_gcontext_t gc, int width,
                          int height)
{
    const xcb_pixmap_t pixmap = xcb_generate_id(c);
    xcb_create_pixmap(c, screen.root_depth, pixmap, screen.root, static_cast<std::uint16_t>(width),
                      static_cast<std::uint16_t>(height));
    xcb_create_gc(c, gc, pixmap, 0, nullptr);
    std::vector<std::uint32_t> row(static_cast<std::size_t>(width));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            row[static_cast<std::size_t>(x)]
                = colourAt(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y));
        xcb_put_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, gc, static_cast<std::uint16_t>(width), 1, 0,
                      static_cast<std::int16_t>(y), 0, screen.root_depth,
                      static_cast<std::uint32_t>(width * 4),
                      reinterpret_cast<const std::uint8_t *>(row.data()));
    }
    return pixmap;
}

int show(xcb_connection_t *c, const xcb_screen_t &screen, const int (&place)[4], int delay)
{
    const xcb_gcontext_t gc = xcb_generate_id(c);
    const xcb_pixmap_t picture = paintPattern(c, screen, gc, place[2], place[3]);
    const xcb_window_t window = openWindow(c, screen, place);
    xcb_flush(c);
    bool first = true;
    while (const Event event{xcb_wait_for_event(c)}) {
        const unsigned type = event->response_type & 0x7fU;
        if (type == XCB_EXPOSE) {
            const auto &area = reinterpret_cast<const xcb_expose_event_t &>(*event);
            if (!first)
                std::this_thread::sleep_for(std::chrono::milliseconds(delay));
            xcb_copy_area(c, picture, window, gc, static_cast<std::int16_t>(area.x),
                          static_cast<std::int16_t>(area.y), static_cast<std::int16_t>(area.x),
                          static_cast<std::int16_t>(area.y), area.width, area.height);
            if (std::exchange(first, false)) {
                xcb_set_input_focus(c, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
                say("window", window);
            }
            xcb_flush(c);
        } else if (type == XCB_KEY_PRESS) {
            say("key", reinterpret_cast<const xcb_key_press_event_t &>(*event).detail);
        }
    }
    return EXIT_SUCCESS;
}

int grab(xcb_connection_t *c, const xcb_screen_t &screen, unsigned modifiers, unsigned keyCode)
{
    xcb_grab_key(c, 0, screen.root, static_cast<std::uint16_t>(modifiers), static_cast<std::uint8_t>(keyCode),
                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_flush(c);
    say("grabbed", keyCode);
    while (const Event event{xcb_wait_for_event(c)}) {
    }
    return EXIT_SUCCESS;
}

// A window that does not show, to speak through.
xcb_window_t hiddenWindow(xcb_connection_t *c, const xcb_screen_t &screen)
{
    const xcb_window_t window = xcb_generate_id(c);
    xcb_create_window(c, XCB_COPY_FROM_PARENT, window, screen.root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen.root_visual, 0, nullptr);
    return window;
}

// A window that does not show gets no grab, so asking changes nothing for others.
int tellWhetherHeld(xcb_connection_t *c, const xcb_screen_t &screen)
{
    const xcb_window_t window = hiddenWindow(c, screen);
    const auto cookie
        = xcb_grab_keyboard(c, 0, window, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const std::unique_ptr<xcb_grab_keyboard_reply_t, Free> reply(xcb_grab_keyboard_reply(c, cookie, nullptr));
    say("held", reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED ? 1 : 0);
    return EXIT_SUCCESS;
}

int tellWhetherPointerHeld(xcb_connection_t *c, const xcb_screen_t &screen)
{
    const auto cookie
        = xcb_grab_pointer(c, 0, hiddenWindow(c, screen), 0, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                           XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME);
    const std::unique_ptr<xcb_grab_pointer_reply_t, Free> reply(xcb_grab_pointer_reply(c, cookie, nullptr));
    say("held", reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED ? 1 : 0);
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char **argv)
{
    xcb_connection_t *c = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(c) || argc < 2)
        return EXIT_FAILURE;
    const xcb_screen_t &screen = *xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    if (std::strcmp(argv[1], "--keyboard") == 0)
        return tellWhetherHeld(c, screen);
    if (std::strcmp(argv[1], "--pointer") == 0)
        return tellWhetherPointerHeld(c, screen);
    if (argc < 4)
        return EXIT_FAILURE;
    if (std::strcmp(argv[1], "--grab") == 0)
        return grab(c, screen, static_cast<unsigned>(std::atoi(argv[2])),
                    static_cast<unsigned>(std::atoi(argv[3])));
    const int place[4] = {std::atoi(argv[1]), std::atoi(argv[2]), std::atoi(argv[3]), std::atoi(argv[4])};
    return show(c, screen, place, argc > 5 ? std::atoi(argv[5]) : 0);
}
