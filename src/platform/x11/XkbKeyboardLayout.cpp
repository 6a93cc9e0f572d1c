#include "platform/x11/XkbKeyboardLayout.h"

#include "platform/freedesktop/KeymapText.h"
#include "platform/x11/Xcb.h"

#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

namespace {

using Context = std::unique_ptr<xkb_context, decltype(&xkb_context_unref)>;
using Keymap = std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)>;
using State = std::unique_ptr<xkb_state, decltype(&xkb_state_unref)>;

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
    const auto group = xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    return KeymapText::ofKey(*keymap, group, evdevCode);
}
