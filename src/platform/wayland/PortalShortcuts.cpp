#include "platform/wayland/PortalShortcuts.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>

namespace {

struct PortalShortcut {
    QString id;
    QVariantMap properties;
};

QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcut &shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PortalShortcut &shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

} // namespace

namespace PortalShortcuts {

QVariant proposal(const QString &trigger)
{
    static const bool registered = qDBusRegisterMetaType<PortalShortcut>().isValid()
                                   && qDBusRegisterMetaType<QList<PortalShortcut>>().isValid();
    Q_ASSERT(registered);
    QVariantMap properties{{QStringLiteral("description"), QStringLiteral("Vellumora")}};
    if (!trigger.isEmpty())
        properties.insert(QStringLiteral("preferred_trigger"), trigger);
    return QVariant::fromValue(QList<PortalShortcut>{{id, properties}});
}

QString keysIn(const QVariant &shortcuts)
{
    const auto argument = shortcuts.value<QDBusArgument>();
    if (argument.currentSignature() != u"a(sa{sv})")
        return {};
    for (const PortalShortcut &shortcut : qdbus_cast<QList<PortalShortcut>>(argument))
        if (shortcut.id == id)
            return shortcut.properties.value(QStringLiteral("trigger_description")).toString();
    return {};
}

QString sessionIn(const QVariantMap &results)
{
    const QVariant session = results.value(QStringLiteral("session_handle"));
    // A path by its type in the first version, a text since.
    const QString path = session.canConvert<QDBusObjectPath>() ? session.value<QDBusObjectPath>().path()
                                                               : session.toString();
    return path.startsWith(u'/') ? path : QString();
}

} // namespace PortalShortcuts
