#include "platform/wayland/WaylandKeyboardLayout.h"

#include "platform/freedesktop/KeymapText.h"
#include "platform/wayland/QtQueue.h"

#include <xkbcommon/xkbcommon.h>

#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr std::uint32_t seatVersion = 5; // the first whose objects can be given back

using Context = std::unique_ptr<xkb_context, decltype(&xkb_context_unref)>;
using Keymap = std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)>;

// Empty when the file cannot be read.
QByteArray contentOf(int file, std::uint32_t size)
{
    void *content = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (content == MAP_FAILED)
        return {};
    QByteArray text(static_cast<const char *>(content), static_cast<qsizetype>(size));
    munmap(content, size);
    return text;
}

} // namespace

WaylandKeyboardLayout::WaylandKeyboardLayout(std::shared_ptr<QtQueue> queue)
    : m_queue(std::move(queue))
    , m_seat(m_queue->bind<wl_seat>(wl_seat_interface, seatVersion))
{
    static constexpr wl_seat_listener listener{
        .capabilities =
            [](void *self, wl_seat *, std::uint32_t all) {
                static_cast<WaylandKeyboardLayout *>(self)->followSeat(all & WL_SEAT_CAPABILITY_KEYBOARD);
            },
        .name = [](void *, wl_seat *, const char *) {},
    };
    if (m_seat)
        wl_seat_add_listener(m_seat, &listener, this);
}

WaylandKeyboardLayout::~WaylandKeyboardLayout()
{
    followSeat(false);
    if (m_seat)
        wl_seat_destroy(m_seat);
}

void WaylandKeyboardLayout::followSeat(bool hasKeyboard)
{
    static constexpr wl_keyboard_listener listener{
        .keymap =
            [](void *self, wl_keyboard *, std::uint32_t format, std::int32_t file, std::uint32_t size) {
                static_cast<WaylandKeyboardLayout *>(self)->readKeymap(format, file, size);
            },
        .enter = [](void *, wl_keyboard *, std::uint32_t, wl_surface *, wl_array *) {},
        .leave = [](void *, wl_keyboard *, std::uint32_t, wl_surface *) {},
        .key = [](void *, wl_keyboard *, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .modifiers
        = [](void *self, wl_keyboard *, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
             std::uint32_t layout) { static_cast<WaylandKeyboardLayout *>(self)->m_layout = layout; },
        .repeat_info = [](void *, wl_keyboard *, std::int32_t, std::int32_t) {},
    };
    if (hasKeyboard && !m_keyboard) {
        m_keyboard = wl_seat_get_keyboard(m_seat);
        wl_keyboard_add_listener(m_keyboard, &listener, this);
    } else if (!hasKeyboard && m_keyboard) {
        wl_keyboard_destroy(m_keyboard);
        m_keyboard = nullptr;
    }
}

void WaylandKeyboardLayout::readKeymap(std::uint32_t format, int file, std::uint32_t size)
{
    if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1)
        m_keymap = contentOf(file, size);
    close(file);
}

std::optional<QString> WaylandKeyboardLayout::textOfKey(std::uint32_t evdevCode) const
{
    if (m_keymap.isEmpty()) {
        m_queue->roundtrip(); // whether there is a keyboard
        m_queue->roundtrip(); // and what is on its keys
    }
    const Context context(xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref);
    if (!context || m_keymap.isEmpty())
        return std::nullopt;
    const Keymap keymap(xkb_keymap_new_from_string(context.get(), m_keymap.constData(),
                                                   XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS),
                        &xkb_keymap_unref);
    return keymap ? KeymapText::ofKey(*keymap, m_layout, evdevCode) : std::nullopt;
}
