#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <QUrl>

#include <optional>

enum class Lang { es, en, it, fr, de, pt };

// Looks up every text that the user reads, and the addresses of the website, in the
// interface language.
namespace L10n {

// Returns the text in the interface language. The key is the Spanish text itself,
// so a key without a translation still reads as a sentence. A "%@" is replaced by
// the value after the look-up.
[[nodiscard]] QString t(QStringView key);
[[nodiscard]] QString t(QStringView key, const QString &value);
[[nodiscard]] QString t(QStringView key, Lang lang);

// Returns the interface language, which is chosen on the first call and then stays.
[[nodiscard]] Lang lang();
[[nodiscard]] QString code(Lang lang);

// Sets the desktop's languages in order of preference, such as "fr-CA". Must be
// called before anything is looked up; otherwise the system's locale decides.
void setPreferredLanguages(const QStringList &languages);

// Returns the language whose code the override is, otherwise the first preferred
// language that the program speaks, otherwise English.
[[nodiscard]] Lang chooseLang(QStringView override, const QStringList &preferred);

[[nodiscard]] QUrl web();
[[nodiscard]] QUrl web(Lang lang);
[[nodiscard]] QUrl legal();
[[nodiscard]] QUrl legal(Lang lang);
[[nodiscard]] QUrl cafe(); // the same for every language

} // namespace L10n
