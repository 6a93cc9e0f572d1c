#include "platform/wayland/KdeHotKeys.h"

#include "platform/freedesktop/SessionBus.h"
#include "platform/wayland/QtKeys.h"

#include <QDBusConnection>
#include <QDBusPendingReply>
#include <QDBusReply>

namespace {

constexpr int patience = 1000; // milliseconds

const QString service = QStringLiteral("org.kde.kglobalaccel");
const QString component = QStringLiteral("vellumora");
const QString action = QStringLiteral("capturar");
const QString shownName = QStringLiteral("Vellumora"); // in the desktop's settings

QDBusMessage call(const QString &method, const QVariantList &arguments)
{
    auto message = QDBusMessage::createMethodCall(service, QStringLiteral("/kglobalaccel"),
                                                  QStringLiteral("org.kde.KGlobalAccel"), method);
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().call(message, QDBus::Block, patience);
}

QStringList actionId() { return {component, action, shownName, shownName}; }

} // namespace

bool KdeHotKeys::present()
{
    if (!SessionBus::present())
        return false;
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    auto message = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                                                  QStringLiteral("NameHasOwner"));
    message << service;
    const QDBusReply<bool> reply = QDBusConnection::sessionBus().call(message, QDBus::Block, patience);
    return reply.isValid() && reply.value();
}

KdeHotKeys::KdeHotKeys(const KeyboardLayout *layout) : m_layout(layout)
{
    QDBusConnection::sessionBus().connect(QString(), QStringLiteral("/component/") + component,
                                          QStringLiteral("org.kde.kglobalaccel.Component"),
                                          QStringLiteral("globalShortcutPressed"), this,
                                          SLOT(pressed(QString, QString)));
}

KdeHotKeys::~KdeHotKeys() { unregisterShortcut(); }

// The service gives up the old keys before it looks at the new ones, so they are taken
// again when those are refused.
bool KdeHotKeys::registerShortcut(const Shortcut &shortcut)
{
    const auto key = QtKeys::of(shortcut, m_layout);
    if (!key)
        return false;
    if (set(*key)) {
        m_key = key;
        return true;
    }
    if (m_key && !set(*m_key))
        m_key.reset();
    return false;
}

bool KdeHotKeys::set(int key)
{
    constexpr uint asItIs = 2 | 4; // in force now, whatever the service remembers of the last time
    call(QStringLiteral("doRegister"), {actionId()});
    const QDBusReply<QList<int>> granted
        = call(QStringLiteral("setShortcut"), {actionId(), QVariant::fromValue(QList<int>{key}), asItIs});
    return granted.isValid() && granted.value().contains(key);
}

void KdeHotKeys::unregisterShortcut()
{
    if (std::exchange(m_key, std::nullopt))
        call(QStringLiteral("unregister"), {component, action});
}

void KdeHotKeys::pressed(const QString &, const QString &which)
{
    if (which == action && m_key && onPressed)
        onPressed();
}
