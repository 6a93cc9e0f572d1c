#include "platform/x11/Keyboard.h"

#include "platform/Shortcut.h"
#include "platform/x11/Xcb.h"

#include <xcb/xcb_keysyms.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <span>

namespace {

using Symbols = std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)>;

constexpr int modifierCount = 8;

// The mask of the modifier that a key with one of these symbols is bound to, or
// the fallback when there is no such key.
std::uint16_t maskOf(std::initializer_list<xcb_keysym_t> symbols, std::uint16_t fallback)
{
    auto *c = Xcb::connection();
    const Xcb::Reply<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(c, xcb_get_modifier_mapping(c), nullptr));
    const Symbols table(xcb_key_symbols_alloc(c), &xcb_key_symbols_free);
    if (!mapping || !table)
        return fallback;
    const std::span all(xcb_get_modifier_mapping_keycodes(mapping.get()),
                        static_cast<size_t>(modifierCount * mapping->keycodes_per_modifier));
    for (const xcb_keysym_t symbol : symbols) {
        const Xcb::Reply<xcb_keycode_t> codes(xcb_key_symbols_get_keycode(table.get(), symbol));
        for (const xcb_keycode_t *code = codes.get(); code && *code != XCB_NO_SYMBOL; ++code)
            if (const auto at = std::ranges::find(all, *code); at != all.end())
                return static_cast<std::uint16_t>(1U
                                                  << ((at - all.begin()) / mapping->keycodes_per_modifier));
    }
    return fallback;
}

} // namespace

namespace X11Keyboard {

std::uint16_t modifierMask(std::uint64_t shortcutModifiers)
{
    unsigned mask = 0;
    if (shortcutModifiers & Shortcut::shift)
        mask |= XCB_MOD_MASK_SHIFT;
    if (shortcutModifiers & Shortcut::control)
        mask |= XCB_MOD_MASK_CONTROL;
    if (shortcutModifiers & Shortcut::option)
        mask |= maskOf({XKB_KEY_Alt_L, XKB_KEY_Alt_R}, XCB_MOD_MASK_1);
    if (shortcutModifiers & Shortcut::command)
        mask |= maskOf({XKB_KEY_Super_L, XKB_KEY_Super_R}, XCB_MOD_MASK_4);
    return static_cast<std::uint16_t>(mask);
}

std::vector<std::uint16_t> lockStates()
{
    std::vector<std::uint16_t> states{0};
    for (const unsigned lock : {unsigned(XCB_MOD_MASK_LOCK), unsigned(maskOf({XKB_KEY_Num_Lock}, 0)),
                                unsigned(maskOf({XKB_KEY_Scroll_Lock}, 0))}) {
        if (lock == 0)
            continue;
        const size_t before = states.size();
        for (size_t i = 0; i < before; ++i)
            states.push_back(static_cast<std::uint16_t>(states[i] | lock));
    }
    return states;
}

} // namespace X11Keyboard
