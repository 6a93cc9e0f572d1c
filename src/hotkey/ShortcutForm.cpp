#include "hotkey/ShortcutForm.h"

#include "l10n/L10n.h"
#include "platform/KeyCodes.h"
#include "platform/KeyboardLayout.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <limits>

namespace {

struct Modifier {
    std::uint64_t flag;
    char16_t symbol;
    QStringView word;
};
// In the order in which they are shown.
constexpr Modifier modifierRows[] = {
    {Shortcut::control, u'⌃', u"Ctrl"},
    {Shortcut::option, u'⌥', u"Alt"},
    {Shortcut::shift, u'⇧', u"Mayús"},
    {Shortcut::command, u'⌘', u"Super"},
};

struct NamedKey {
    std::uint32_t keyCode;
    const char16_t *name;
};
constexpr NamedKey namedKeys[] = {
    {KeyCodes::returnKey, u"↩"},
    {KeyCodes::escapeKey, u"⎋"},
    {KeyCodes::tabKey, u"⇥"},
    {122, u"F1"},
    {120, u"F2"},
    {99, u"F3"},
    {118, u"F4"},
    {96, u"F5"},
    {97, u"F6"},
    {98, u"F7"},
    {100, u"F8"},
    {101, u"F9"},
    {109, u"F10"},
    {103, u"F11"},
    {111, u"F12"},
    {105, u"F13"},
    {107, u"F14"},
    {113, u"F15"},
};

struct KeyWord {
    char16_t symbol;
    QStringView word;
};
constexpr KeyWord keyWords[] = {{u'↩', u"Intro"}, {u'⎋', u"Esc"}, {u'⇥', u"Tab"}};

const QString keyCodeField = QStringLiteral("keyCode");
const QString modifiersField = QStringLiteral("modifiers");

constexpr std::int64_t lastKeyCode = 0xffff; // positions are 16-bit numbers

std::optional<std::int64_t> wholeNumber(const QJsonValue &value, std::int64_t highest)
{
    constexpr std::int64_t none = -1;
    const std::int64_t number = value.isDouble() ? value.toInteger(none) : none;
    return number >= 0 && number <= highest ? std::optional(number) : std::nullopt;
}

} // namespace

namespace ShortcutForm {

QString display(const Shortcut &shortcut, const KeyboardLayout &layout)
{
    QString text;
    for (const Modifier &row : modifierRows)
        if (shortcut.modifiers & row.flag)
            text += row.symbol;
    return text + keyName(shortcut.keyCode, layout);
}

QString inWords(const QString &text)
{
    QString words;
    for (const QChar symbol : text) {
        const auto *modifier = std::ranges::find(modifierRows, symbol, &Modifier::symbol);
        const auto *key = std::ranges::find(keyWords, symbol, &KeyWord::symbol);
        if (modifier != std::end(modifierRows))
            words += L10n::t(modifier->word) + u'+';
        else
            words += key != std::end(keyWords) ? L10n::t(key->word) : QString(symbol);
    }
    return words;
}

QString keyName(std::uint32_t keyCode, const KeyboardLayout &layout)
{
    if (keyCode == KeyCodes::spaceKey)
        return L10n::t(u"Espacio");
    const auto *row = std::ranges::find(namedKeys, keyCode, &NamedKey::keyCode);
    if (row != std::end(namedKeys))
        return QString::fromUtf16(row->name);
    const auto position = KeyCodes::toEvdev(keyCode);
    const auto text = position ? layout.textOfKey(*position) : std::nullopt;
    return text ? text->toUpper() : QStringLiteral("?");
}

QByteArray toJson(const Shortcut &shortcut)
{
    const QJsonObject object{{keyCodeField, static_cast<qint64>(shortcut.keyCode)},
                             {modifiersField, static_cast<qint64>(shortcut.modifiers)}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<Shortcut> fromJson(const QByteArray &json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const auto code = wholeNumber(object.value(keyCodeField), lastKeyCode);
    const auto mask = wholeNumber(object.value(modifiersField), std::numeric_limits<std::int64_t>::max());
    if (!code || !mask)
        return std::nullopt;
    return Shortcut{static_cast<std::uint32_t>(*code), static_cast<std::uint64_t>(*mask)};
}

} // namespace ShortcutForm
