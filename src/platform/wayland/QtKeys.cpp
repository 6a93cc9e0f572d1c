#include "platform/wayland/QtKeys.h"

#include "platform/KeyCodes.h"
#include "platform/KeyboardLayout.h"

#include <QKeySequence>

#include <algorithm>

namespace {

struct Modifier {
    std::uint64_t flag;
    int inQt;
    const char16_t *inTriggers;
};
constexpr Modifier modifiers[] = {
    {Shortcut::control, Qt::ControlModifier, u"CTRL+"},
    {Shortcut::option, Qt::AltModifier, u"ALT+"},
    {Shortcut::shift, Qt::ShiftModifier, u"SHIFT+"},
    {Shortcut::command, Qt::MetaModifier, u"LOGO+"},
};

struct NamedKey {
    Qt::Key key;
    const char16_t *name; // of its keysym
};
constexpr NamedKey namedKeys[] = {
    {Qt::Key_Return, u"Return"},
    {Qt::Key_Tab, u"Tab"},
    {Qt::Key_Space, u"space"},
    {Qt::Key_Backspace, u"BackSpace"},
    {Qt::Key_Escape, u"Escape"},
    {Qt::Key_Insert, u"Insert"},
    {Qt::Key_Delete, u"Delete"},
    {Qt::Key_Home, u"Home"},
    {Qt::Key_End, u"End"},
    {Qt::Key_PageUp, u"Page_Up"},
    {Qt::Key_PageDown, u"Page_Down"},
    {Qt::Key_Left, u"Left"},
    {Qt::Key_Right, u"Right"},
    {Qt::Key_Up, u"Up"},
    {Qt::Key_Down, u"Down"},
    {Qt::Key_Enter, u"KP_Enter"},
    {Qt::Key_Menu, u"Menu"},
    {Qt::Key_Minus, u"minus"},
    {Qt::Key_Equal, u"equal"},
    {Qt::Key_Comma, u"comma"},
    {Qt::Key_Period, u"period"},
    {Qt::Key_Slash, u"slash"},
    {Qt::Key_Less, u"less"},
    {Qt::Key_QuoteLeft, u"grave"},
};

// What the layout types there, if that is one Latin character.
std::optional<Qt::Key> latinKeyAt(std::uint32_t position, const KeyboardLayout *layout)
{
    constexpr char16_t lastLatin1 = 0xff;
    const QString text = layout ? layout->textOfKey(position).value_or(QString()).toUpper() : QString();
    const bool latin = text.size() == 1 && text[0] > u' ' && text[0] <= lastLatin1;
    return latin ? std::optional(Qt::Key(text[0].unicode())) : std::nullopt;
}

std::optional<Qt::Key> keyOf(const Shortcut &shortcut, const KeyboardLayout *layout)
{
    const auto position = KeyCodes::toEvdev(shortcut.keyCode);
    if (!position)
        return std::nullopt;
    const auto typed = latinKeyAt(*position, layout);
    return typed ? typed : KeyCodes::qtKeyAt(*position);
}

QString keysymOf(Qt::Key key)
{
    const auto *named = std::ranges::find(namedKeys, key, &NamedKey::key);
    if (named != std::end(namedKeys))
        return QString::fromUtf16(named->name);
    const bool plain = (key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z);
    if (plain)
        return QString(QChar(key)).toLower();
    const bool function = key >= Qt::Key_F1 && key <= Qt::Key_F35;
    return function ? QKeySequence(key).toString() : QString();
}

} // namespace

namespace QtKeys {

std::optional<int> of(const Shortcut &shortcut, const KeyboardLayout *layout)
{
    const auto key = keyOf(shortcut, layout);
    if (!key)
        return std::nullopt;
    int all = *key;
    for (const Modifier &modifier : modifiers)
        if (shortcut.modifiers & modifier.flag)
            all |= modifier.inQt;
    return all;
}

QString triggerOf(const Shortcut &shortcut, const KeyboardLayout *layout)
{
    const auto key = keyOf(shortcut, layout);
    const QString keysym = key ? keysymOf(*key) : QString();
    if (keysym.isEmpty())
        return {};
    QString trigger;
    for (const Modifier &modifier : modifiers)
        if (shortcut.modifiers & modifier.flag)
            trigger += QString::fromUtf16(modifier.inTriggers);
    return trigger + keysym;
}

} // namespace QtKeys
