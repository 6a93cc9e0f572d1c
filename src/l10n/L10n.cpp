#include "l10n/L10n.h"

#include "l10n/Texts.h"

#include <QHash>
#include <QLocale>

#include <array>

namespace {

constexpr std::array<QStringView, 6> codes{u"es", u"en", u"it", u"fr", u"de", u"pt"};
constexpr std::array<QStringView Text::*, 6> columns{&Text::es, &Text::en, &Text::it,
                                                     &Text::fr, &Text::de, &Text::pt};

QStringList &preferredLanguages()
{
    static QStringList languages = QLocale::system().uiLanguages();
    return languages;
}

std::optional<Lang> langForCode(QStringView code)
{
    for (size_t i = 0; i < codes.size(); ++i)
        if (codes[i] == code)
            return static_cast<Lang>(i);
    return std::nullopt;
}

const QHash<QStringView, const Text *> &table()
{
    static const auto index = [] {
        QHash<QStringView, const Text *> rows;
        for (const auto texts : {shellTexts(), overlayTexts(), updaterTexts()})
            for (const Text &text : texts)
                rows.insert(text.es, &text);
        return rows;
    }();
    return index;
}

QString root() { return QStringLiteral(VELLUMORA_WEB_ROOT); }

// Spanish lives at the site's root, every other language in a folder of its own.
QString segment(Lang lang) { return lang == Lang::es ? QString() : L10n::code(lang) + u'/'; }

} // namespace

namespace L10n {

QString t(QStringView key) { return t(key, lang()); }

QString t(QStringView key, Lang lang)
{
    const Text *row = table().value(key);
    return (row ? row->*columns[static_cast<size_t>(lang)] : key).toString();
}

Lang lang()
{
    static const Lang chosen = chooseLang(qEnvironmentVariable("VELLUMORA_IDIOMA"), preferredLanguages());
    return chosen;
}

QString code(Lang lang) { return codes[static_cast<size_t>(lang)].toString(); }

void setPreferredLanguages(const QStringList &languages) { preferredLanguages() = languages; }

Lang chooseLang(QStringView override, const QStringList &preferred)
{
    if (const auto lang = langForCode(override))
        return *lang;
    for (const QString &entry : preferred)
        if (const auto lang = langForCode(entry.left(2).toLower()))
            return *lang;
    return Lang::en;
}

QString t(QStringView key, const QString &value) { return t(key).replace(QStringLiteral("%@"), value); }

QUrl web() { return web(lang()); }
QUrl web(Lang lang) { return QUrl(root() + segment(lang)); }
QUrl legal() { return legal(lang()); }
QUrl legal(Lang lang) { return QUrl(root() + segment(lang) + QStringLiteral("aviso-legal")); }
QUrl cafe() { return QUrl(root() + QStringLiteral("cafe")); }

} // namespace L10n
