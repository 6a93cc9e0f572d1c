#include "platform/x11/XkbKeyboardLayout.h"

#include "platform/KeyCodes.h"
#include "platform/x11/Xcb.h"

#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

#include <array>

namespace {

using Context = std::unique_ptr<xkb_context, decltype(&xkb_context_unref)>;
using Keymap = std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)>;
using State = std::unique_ptr<xkb_state, decltype(&xkb_state_unref)>;

QString textOfSymbol(xkb_keysym_t symbol)
{
    std::array<char, 8> utf8{}; // one character and the end
    const int length = xkb_keysym_to_utf8(symbol, utf8.data(), utf8.size());
    return length > 1 ? QString::fromUtf8(utf8.data(), length - 1) : QString();
}

} // namespace

std::optional<QString> XkbKeyboardLayout::textOfKey(std::uint32_t evdevCode) const
{
    auto *c = Xcb::connection();
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(c);
    const Context context(xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref);
    if (device < 0 || !context)
        return std::nullopt;
    const Keymap keymap(xkb_x11_keymap_new_from_device(context.get(), c, device, XKB_KEYMAP_COMPILE_NO_FLAGS),
                        &xkb_keymap_unref);
    if (!keymap)
        return std::nullopt;
    const State state(xkb_x11_state_new_from_device(keymap.get(), c, device), &xkb_state_unref);
    if (!state)
        return std::nullopt;
    // The group in use, but always the first level: held modifiers must not show.
    const auto group = xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    const xkb_keysym_t *symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap.get(), evdevCode + KeyCodes::nativeOffset,
                                                       group, 0, &symbols);
    const QString text = count > 0 ? textOfSymbol(symbols[0]) : QString();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}
