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

// The key that types a text, if that is one Latin character.
std::optional<Qt::Key> latinKeyOf(const std::optional<QString> &typed)
{
    constexpr char16_t lastLatin1 = 0xff;
    const QString text = typed.value_or(QString()).toUpper();
    const bool latin = text.size() == 1 && text[0] > u' ' && text[0] <= lastLatin1;
    return latin ? std::optional(Qt::Key(text[0].unicode())) : std::nullopt;
}

std::optional<Qt::Key> keyOf(const Shortcut &shortcut, const KeyboardLayout *layout)
{
    const auto position = KeyCodes::toEvdev(shortcut.keyCode);
    if (!position)
        return std::nullopt;
    const auto typed = layout ? latinKeyOf(layout->textOfKey(*position)) : std::nullopt;
    return typed ? typed : KeyCodes::qtKeyAt(*position);
}

// Whether Shift makes another symbol of what the key types. It makes capitals of
// letters, which are the same key to Qt.
bool isSymbol(Qt::Key key)
{
    constexpr int firstSpecial = 0x01000000; // Qt's keys that type nothing
    return key > Qt::Key_Space && key < firstSpecial && !QChar(key).isLetter();
}

bool isOnKeypad(std::uint32_t position)
{
    constexpr std::uint32_t apart[] = {55, 98, 117, 121};
    constexpr std::uint32_t first = 71;
    constexpr std::uint32_t last = 83;
    return (position >= first && position <= last) || std::ranges::find(apart, position) != std::end(apart);
}

int withModifiers(Qt::Key key, std::uint64_t flags)
{
    int all = key;
    for (const Modifier &modifier : modifiers)
        if (flags & modifier.flag)
            all |= modifier.inQt;
    return all;
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
    const std::uint32_t position = KeyCodes::toEvdev(shortcut.keyCode).value_or(0);
    if (!key || isOnKeypad(position))
        return std::nullopt;
    if (!isSymbol(*key) || (shortcut.modifiers & Shortcut::shift) == 0)
        return withModifiers(*key, shortcut.modifiers);
    // KDE looks for what is typed, in which Shift has been used up.
    const auto shifted = layout ? latinKeyOf(layout->shiftedTextOfKey(position)) : std::nullopt;
    return shifted ? std::optional(withModifiers(*shifted, shortcut.modifiers & ~Shortcut::shift))
                   : std::nullopt;
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
