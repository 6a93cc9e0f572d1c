#include "platform/freedesktop/KeymapText.h"

#include "platform/KeyCodes.h"

#include <xkbcommon/xkbcommon.h>

#include <array>

namespace {

QString textOfSymbol(xkb_keysym_t symbol)
{
    std::array<char, 8> utf8{}; // one character and the end
    const int length = xkb_keysym_to_utf8(symbol, utf8.data(), utf8.size());
    return length > 1 ? QString::fromUtf8(utf8.data(), length - 1) : QString();
}

} // namespace

namespace KeymapText {

// Always the first level: held modifiers must not show.
std::optional<QString> ofKey(xkb_keymap &keymap, std::uint32_t layout, std::uint32_t evdevCode)
{
    const xkb_keysym_t *symbols = nullptr;
    const int count
        = xkb_keymap_key_get_syms_by_level(&keymap, evdevCode + KeyCodes::nativeOffset, layout, 0, &symbols);
    const QString text = count > 0 ? textOfSymbol(symbols[0]) : QString();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

} // namespace KeymapText
