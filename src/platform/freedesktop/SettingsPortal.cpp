#include "platform/freedesktop/SettingsPortal.h"

#include "platform/freedesktop/SessionBus.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

struct Setting {
    const char16_t *group;
    const char16_t *key;
};
// The same wish in the words of the common standard and of two desktops that
// are older than it.
constexpr Setting reducedMotion{u"org.freedesktop.appearance", u"reduced-motion"};
constexpr Setting gnomeAnimations{u"org.gnome.desktop.interface", u"enable-animations"};
constexpr Setting kdeAnimations{u"org.kde.kdeglobals.KDE", u"AnimationDurationFactor"};
constexpr Setting colorScheme{u"org.freedesktop.appearance", u"color-scheme"};
constexpr Setting followed[] = {reducedMotion, gnomeAnimations, kdeAnimations, colorScheme};

QString nameOf(const QString &group, const QString &key) { return group + u' ' + key; }
QString nameOf(const Setting &setting)
{
    return nameOf(QString::fromUtf16(setting.group), QString::fromUtf16(setting.key));
}

// Older portals wrap the value in one variant more than newer ones.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

SettingsPortal::SettingsPortal()
{
    if (!SessionBus::present())
        return;
    QDBusConnection::sessionBus().connect(service, object, interface, QStringLiteral("SettingChanged"), this,
                                          SLOT(settingChanged(QString, QString, QDBusVariant)));
    for (const Setting &setting : followed)
        ask(QString::fromUtf16(setting.group), QString::fromUtf16(setting.key));
}

void SettingsPortal::ask(const QString &group, const QString &key)
{
    auto call = QDBusMessage::createMethodCall(service, object, interface, QStringLiteral("Read"));
    call << group << key;
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, group, key, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (!reply.isError())
            take(group, key, reply.value().variant());
        watcher->deleteLater();
    });
}

void SettingsPortal::settingChanged(const QString &group, const QString &key, const QDBusVariant &value)
{
    take(group, key, value.variant());
}

void SettingsPortal::take(const QString &group, const QString &key, const QVariant &value)
{
    const QString name = nameOf(group, key);
    if (std::ranges::none_of(followed, [&](const Setting &setting) { return nameOf(setting) == name; }))
        return;
    m_values.insert(name, unwrapped(value));
    emit changed();
}

bool SettingsPortal::reducesMotion() const
{
    const QVariant standard = m_values.value(nameOf(reducedMotion));
    if (standard.isValid())
        return standard.toUInt() == 1;
    const QVariant animations = m_values.value(nameOf(gnomeAnimations));
    if (animations.isValid())
        return !animations.toBool();
    const QVariant duration = m_values.value(nameOf(kdeAnimations));
    return duration.isValid() && duration.toDouble() == 0;
}

std::optional<bool> SettingsPortal::prefersDark() const
{
    constexpr uint dark = 1;
    constexpr uint light = 2;
    const uint scheme = m_values.value(nameOf(colorScheme)).toUInt();
    if (scheme != dark && scheme != light)
        return std::nullopt;
    return scheme == dark;
}
