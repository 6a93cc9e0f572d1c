#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <QUrl>

#include <optional>

enum class Lang { es, en, it, fr, de, pt };

// Every text that the user reads, and the addresses of the website, in the
// interface language.
namespace L10n {

// The text in the interface language. The key is the Spanish text itself, so a
// key that has no translation still reads as a sentence. A "%@" is filled with
// the value after the look-up.
[[nodiscard]] QString t(QStringView key);
[[nodiscard]] QString t(QStringView key, const QString &value);
[[nodiscard]] QString t(QStringView key, Lang lang);

// Chosen at the first question and fixed from then on.
[[nodiscard]] Lang lang();
[[nodiscard]] QString code(Lang lang);

// The desktop's languages in order of preference, such as "fr-CA". To be told
// before anything is looked up; without it the system's locale decides.
void setPreferredLanguages(const QStringList &languages);

// An exact code in the override wins, then the first preferred language that
// the program speaks, then English.
[[nodiscard]] Lang chooseLang(QStringView override, const QStringList &preferred);

[[nodiscard]] QUrl web();
[[nodiscard]] QUrl web(Lang lang);
[[nodiscard]] QUrl legal();
[[nodiscard]] QUrl legal(Lang lang);
[[nodiscard]] QUrl cafe(); // the same for every language

} // namespace L10n
