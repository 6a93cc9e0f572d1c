#include "updater/Manifest.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

std::optional<QString> text(const QJsonValue &value)
{
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QHash<QString, QString>> texts(const QJsonValue &value)
{
    if (!value.isObject())
        return std::nullopt;
    QHash<QString, QString> found;
    const QJsonObject object = value.toObject();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const auto said = text(entry.value());
        if (!said)
            return std::nullopt;
        found.insert(entry.key(), *said);
    }
    return found;
}

std::optional<Manifest::Item> item(const QJsonValue &value)
{
    const auto url = text(value[u"url"]);
    const auto sha256 = text(value[u"sha256"]);
    if (!url || !sha256)
        return std::nullopt;
    const qint64 size = value[u"size"].toInteger();
    return Manifest::Item{*url, *sha256, text(value[u"arch"]), size > 0 ? std::optional(size) : std::nullopt};
}

bool isAbsent(const QJsonValue &value) { return value.isUndefined() || value.isNull(); }

} // namespace

std::optional<Manifest> Manifest::decode(const QByteArray &json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const auto version = text(object[u"version"]);
    const auto novedades = texts(object[u"novedades"]);
    const auto mac = ::item(object[u"mac"]);
    const auto linux = ::item(object[u"linux"]);
    if (!version || !novedades || !mac || (!linux && !isAbsent(object[u"linux"])))
        return std::nullopt;
    return Manifest{*version, *novedades, *mac, linux};
}

std::optional<QString> Manifest::notas(Lang lang) const
{
    for (const QString &code : {L10n::code(lang), L10n::code(Lang::en)})
        if (const auto notes = novedades.constFind(code); notes != novedades.constEnd())
            return *notes;
    return std::nullopt;
}
