#include "settings/RecorderRules.h"

#include "platform/KeyCodes.h"
#include "platform/Shortcut.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <utility>

namespace {

// The function keys and the keys of their block: on their own they type nothing.
constexpr std::uint32_t firstLoneKey = 96;
constexpr std::uint32_t lastLoneKey = 122;

constexpr std::uint32_t firstModifierKey = 54;
constexpr std::uint32_t lastModifierKey = 63;

constexpr std::array<std::pair<Qt::KeyboardModifier, std::uint64_t>, 4> modifierRows{{
    {Qt::ShiftModifier, Shortcut::shift},
    {Qt::ControlModifier, Shortcut::control},
    {Qt::AltModifier, Shortcut::option},
    {Qt::MetaModifier, Shortcut::command},
}};

constexpr std::array modifierKeys{
    Qt::Key_Shift,   Qt::Key_Control, Qt::Key_Alt,     Qt::Key_AltGr,    Qt::Key_Meta,        Qt::Key_Super_L,
    Qt::Key_Super_R, Qt::Key_Hyper_L, Qt::Key_Hyper_R, Qt::Key_CapsLock, Qt::Key_Mode_switch,
};

} // namespace

namespace RecorderRules {

Verdict verdict(std::optional<std::uint32_t> keyCode, std::uint64_t modifiers)
{
    if (!keyCode || (*keyCode >= firstModifierKey && *keyCode <= lastModifierKey))
        return Verdict::swallow;
    if (*keyCode == KeyCodes::escapeKey)
        return Verdict::cancel;
    const bool alone = (modifiers & Shortcut::allModifiers) == 0;
    const bool mayBeAlone = *keyCode >= firstLoneKey && *keyCode <= lastLoneKey;
    return alone && !mayBeAlone ? Verdict::swallow : Verdict::accept;
}

std::optional<std::uint32_t> keyCodeOf(const QKeyEvent &event)
{
    // Wherever the layout has put it, or there would be no way out by the keyboard.
    if (event.key() == Qt::Key_Escape)
        return KeyCodes::escapeKey;
    const auto position = KeyCodes::evdevOf(event);
    if (!position || std::ranges::find(modifierKeys, event.key()) != modifierKeys.end())
        return std::nullopt;
    return KeyCodes::fromEvdev(*position);
}

std::uint64_t modifiersOf(Qt::KeyboardModifiers modifiers)
{
    std::uint64_t mask = 0;
    for (const auto &[qt, flag] : modifierRows)
        if (modifiers & qt)
            mask |= flag;
    return mask;
}

} // namespace RecorderRules
