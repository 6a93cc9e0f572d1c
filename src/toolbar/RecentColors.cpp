#include "toolbar/RecentColors.h"

#include "base/Defaults.h"
#include "toolbar/ColorHex.h"

#include <QStringList>

#include <algorithm>
#include <optional>

namespace {

constexpr qsizetype mostColors = 10;
constexpr qsizetype hexDigits = 6;

// Anyone may have edited the store; what is no list of texts counts as empty. A
// list of one comes back as a plain text, which this makes a list again.
QStringList stored() { return Defaults::value(Defaults::recentColorsKey).toStringList(); }

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

// Stricter than QColor, which also takes names and other lengths, and than the
// conversion to a number, which takes signs, blanks and prefixes.
std::optional<QColor> parsed(QStringView entry)
{
    const QStringView digits = entry.mid(1);
    if (!entry.startsWith(u'#') || digits.size() != hexDigits
        || !std::all_of(digits.begin(), digits.end(), isHexDigit))
        return std::nullopt;
    return QColor::fromRgb(digits.toUInt(nullptr, 16)); // opaque
}

} // namespace

namespace RecentColors {

QList<QColor> colors()
{
    QList<QColor> found;
    for (const QString &entry : stored())
        if (const auto color = parsed(entry); color && found.size() < mostColors)
            found.append(*color);
    return found;
}

void add(const QColor &color)
{
    QStringList entries = stored();
    entries.removeAll(hex(color));
    entries.prepend(hex(color));
    Defaults::setValue(Defaults::recentColorsKey,
                       QStringList(entries.first(qMin(mostColors, entries.size()))));
}

} // namespace RecentColors
