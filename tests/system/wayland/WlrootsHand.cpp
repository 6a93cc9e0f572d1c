#include "Globals.h"
#include "Hand.h"

#include "virtual-keyboard-unstable-v1-client.h"
#include "wlr-virtual-pointer-unstable-v1-client.h"

#include <xkbcommon/xkbcommon.h>

#include <sys/mman.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::uint32_t steps = 16;   // a point, so that single pixels can be reached at every scale
constexpr std::uint32_t firstKey = 8; // what keymaps add to the kernel's codes

std::uint32_t now()
{
    using namespace std::chrono;
    return static_cast<std::uint32_t>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

// The seat has a pointer and a keyboard only while this one lives.
class WlrootsHand final : public Hand {
public:
    WlrootsHand(wl_display *display, zwlr_virtual_pointer_v1 *pointer, zwp_virtual_keyboard_v1 *keyboard,
                std::uint32_t width, std::uint32_t height)
        : m_display(display)
        , m_pointer(pointer)
        , m_keyboard(keyboard)
        , m_width(width * steps)
        , m_height(height * steps)
    {
        xkb_context *context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
        // The layout that XKB_DEFAULT_LAYOUT names.
        xkb_keymap *map = xkb_keymap_new_from_names(context, nullptr, XKB_KEYMAP_COMPILE_NO_FLAGS);
        m_state = xkb_state_new(map);
        sendMap(map);
        xkb_keymap_unref(map);
        xkb_context_unref(context);
    }
    ~WlrootsHand() override { xkb_state_unref(m_state); }

    void moveTo(double x, double y) override
    {
        zwlr_virtual_pointer_v1_motion_absolute(m_pointer, now(), static_cast<std::uint32_t>(x * steps),
                                                static_cast<std::uint32_t>(y * steps), m_width, m_height);
        zwlr_virtual_pointer_v1_frame(m_pointer);
    }

    void button(std::uint32_t code, bool down) override
    {
        zwlr_virtual_pointer_v1_button(m_pointer, now(), code, down);
        zwlr_virtual_pointer_v1_frame(m_pointer);
    }

    void key(std::uint32_t code, bool down) override
    {
        zwp_virtual_keyboard_v1_key(m_keyboard, now(), code, down);
        // The compositor leaves the modifiers of such a keyboard to us.
        if (xkb_state_update_key(m_state, code + firstKey, down ? XKB_KEY_DOWN : XKB_KEY_UP) != 0)
            zwp_virtual_keyboard_v1_modifiers(m_keyboard,
                                              xkb_state_serialize_mods(m_state, XKB_STATE_MODS_DEPRESSED),
                                              xkb_state_serialize_mods(m_state, XKB_STATE_MODS_LATCHED),
                                              xkb_state_serialize_mods(m_state, XKB_STATE_MODS_LOCKED), 0);
    }

    bool settle() override { return wl_display_roundtrip(m_display) >= 0; }

private:
    void sendMap(xkb_keymap *map)
    {
        char *text = xkb_keymap_get_as_string(map, XKB_KEYMAP_FORMAT_TEXT_V1);
        const std::size_t size = std::strlen(text) + 1;
        const int file = memfd_create("keymap", MFD_CLOEXEC);
        if (write(file, text, size) == static_cast<ssize_t>(size))
            zwp_virtual_keyboard_v1_keymap(m_keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file,
                                           static_cast<std::uint32_t>(size));
        close(file);
        std::free(text);
    }

    wl_display *m_display;
    zwlr_virtual_pointer_v1 *m_pointer;
    zwp_virtual_keyboard_v1 *m_keyboard;
    std::uint32_t m_width, m_height; // of the desktop in steps
    xkb_state *m_state = nullptr;
};

} // namespace

std::unique_ptr<Hand> makeWlrootsHand(wl_display *display, std::uint32_t width, std::uint32_t height)
{
    auto *seat = bindGlobal<wl_seat>(display, wl_seat_interface, 1);
    auto *pointers
        = bindGlobal<zwlr_virtual_pointer_manager_v1>(display, zwlr_virtual_pointer_manager_v1_interface, 1);
    auto *keyboards
        = bindGlobal<zwp_virtual_keyboard_manager_v1>(display, zwp_virtual_keyboard_manager_v1_interface, 1);
    if (!seat || !pointers || !keyboards)
        return nullptr;
    return std::make_unique<WlrootsHand>(
        display, zwlr_virtual_pointer_manager_v1_create_virtual_pointer(pointers, seat),
        zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(keyboards, seat), width, height);
}
