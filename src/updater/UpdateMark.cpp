#include "updater/UpdateMark.h"

#include "base/Defaults.h"

#include <QDate>
#include <QFileInfo>

namespace {

const QString swappingWord = QStringLiteral("cambio");
const QString otherWord = QStringLiteral("descarga");
constexpr qsizetype words = 3; // before the leftovers

// The defaults can be written by hand, and these paths are removed.
bool isOurs(const QString &path)
{
    return QFileInfo(path).isAbsolute() && QFileInfo(path).fileName().startsWith(u"vellumora-");
}

QStringList putOffToday(const QString &version)
{
    return {version, QDate::currentDate().toString(Qt::ISODate)};
}

} // namespace

void UpdateMark::store() const
{
    Defaults::setValue(Defaults::updateMarkKey,
                       QStringList{bundle, version, swapping ? swappingWord : otherWord} + leftovers);
}

std::optional<UpdateMark> UpdateMark::of(const QString &bundle)
{
    const QStringList stored = Defaults::value(Defaults::updateMarkKey).toStringList();
    if (stored.size() < words || stored.at(0) != bundle)
        return std::nullopt;
    UpdateMark mark{bundle, stored.at(1), stored.at(2) == swappingWord};
    for (const QString &path : stored.mid(words))
        if (isOurs(path))
            mark.leftovers.append(path);
    return mark;
}

QStringList UpdateMark::leftoversOf(const QString &bundle)
{
    const auto mark = of(bundle);
    return mark ? mark->leftovers : QStringList();
}

void UpdateMark::clear() { Defaults::remove(Defaults::updateMarkKey); }

void UpdateMark::putOff(const QString &version)
{
    Defaults::setValue(Defaults::putOffKey, putOffToday(version));
}

bool UpdateMark::isPutOff(const QString &version)
{
    return Defaults::value(Defaults::putOffKey).toStringList() == putOffToday(version);
}
