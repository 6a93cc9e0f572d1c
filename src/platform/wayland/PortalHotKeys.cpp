#include "platform/wayland/PortalHotKeys.h"

#include "base/Log.h"
#include "platform/ProgramId.h"
#include "platform/wayland/BusCall.h"
#include "platform/wayland/PortalRequest.h"
#include "platform/wayland/PortalShortcuts.h"
#include "platform/wayland/QtKeys.h"

#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QPointer>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto portalStarts = 30s;
constexpr auto userDecides = 1h; // in a dialog that stays open

const QString group = QStringLiteral("GlobalShortcuts");
const QString connectionName = QStringLiteral("vellumora-atajos");

QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                  const QVariantList &arguments)
{
    auto message = QDBusMessage::createMethodCall(Portal::service, path, interface, method);
    message.setArguments(arguments);
    return message;
}

// A program that was not started from its desktop entry has to say which is its.
QDBusMessage introduction()
{
    return call(Portal::object, QStringLiteral("org.freedesktop.host.portal.Registry"),
                QStringLiteral("Register"), {programId(), QVariantMap()});
}

QDBusMessage versionQuestion()
{
    return call(Portal::object, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                {Portal::interfaces + group, QStringLiteral("version")});
}

PortalRequest::Call sessionCall()
{
    return {.interface = group,
            .method = QStringLiteral("CreateSession"),
            .arguments = {},
            .options = {{QStringLiteral("session_handle_token"), PortalRequest::token()}}};
}

PortalRequest::Call bindCall(const QString &session, const QString &trigger)
{
    return {.interface = group,
            .method = QStringLiteral("BindShortcuts"),
            .arguments = {QVariant::fromValue(QDBusObjectPath(session)), PortalShortcuts::proposal(trigger),
                          QString()}, // no window that its dialog belongs to
            .options = {}};
}

} // namespace

// On a connection of its own: the introduction has to be the first thing that the
// portal hears on it.
PortalHotKeys::PortalHotKeys(const KeyboardLayout *layout)
    : m_layout(layout)
    , m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName))
{
    listen();
    look();
}

PortalHotKeys::~PortalHotKeys()
{
    closeSession();
    QDBusConnection::disconnectFromBus(connectionName);
}

void PortalHotKeys::listen()
{
    const QString interface = Portal::interfaces + group;
    m_bus.connect(QString(), Portal::object, interface, QStringLiteral("Activated"), this,
                  SLOT(activated(QDBusMessage)));
    m_bus.connect(QString(), Portal::object, interface, QStringLiteral("ShortcutsChanged"), this,
                  SLOT(shortcutsChanged(QDBusMessage)));
}

QCoro::Task<void> PortalHotKeys::look()
{
    const QPointer<PortalHotKeys> alive(this);
    const QDBusMessage introduced = co_await BusCall::ask(m_bus, introduction(), portalStarts);
    if (!alive)
        co_return; // else it does not matter: older portals know no introductions
    const QDBusMessage version = co_await BusCall::ask(m_bus, versionQuestion(), portalStarts);
    if (!alive || version.type() != QDBusMessage::ReplyMessage)
        co_return;
    m_there = true;
    if (m_wanted)
        propose(QtKeys::triggerOf(*m_wanted, m_layout));
    tell({});
}

bool PortalHotKeys::registerShortcut(const Shortcut &shortcut)
{
    if (m_there || !m_wanted)
        m_wanted = shortcut;
    if (m_there)
        propose(QtKeys::triggerOf(shortcut, m_layout));
    return m_there;
}

// A session binds once, so each proposal has its own.
QCoro::Task<void> PortalHotKeys::propose(QString trigger)
{
    const QPointer<PortalHotKeys> alive(this);
    const auto created = co_await PortalRequest::send(m_bus, sessionCall(), portalStarts);
    if (!alive)
        co_return;
    const QString session = created.results ? PortalShortcuts::sessionIn(*created.results) : QString();
    if (session.isEmpty()) {
        Log::write(QStringLiteral("atajo: el portal no lo registra: ") + created.problem);
        co_return;
    }
    closeSession();
    m_session = session;
    const auto bound = co_await PortalRequest::send(m_bus, bindCall(session, trigger), userDecides);
    if (!alive || m_session != session)
        co_return; // something else has been proposed meanwhile
    if (bound.results)
        tell(PortalShortcuts::keysIn(bound.results->value(QStringLiteral("shortcuts"))));
    else
        Log::write(QStringLiteral("atajo: el portal no lo registra: ") + bound.problem);
}

void PortalHotKeys::unregisterShortcut()
{
    m_wanted.reset();
    closeSession();
    tell({});
}

void PortalHotKeys::closeSession()
{
    if (const QString old = std::exchange(m_session, QString()); !old.isEmpty())
        m_bus.asyncCall(
            call(old, QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Close"), {}));
}

// Whether it is about the session that is open; that is the first that it carries.
bool PortalHotKeys::isOurs(const QDBusMessage &message) const
{
    return !m_session.isEmpty() && message.arguments().value(0).value<QDBusObjectPath>().path() == m_session;
}

void PortalHotKeys::activated(const QDBusMessage &message)
{
    if (isOurs(message) && message.arguments().value(1) == PortalShortcuts::id && onPressed)
        onPressed();
}

void PortalHotKeys::shortcutsChanged(const QDBusMessage &message)
{
    if (isOurs(message))
        tell(PortalShortcuts::keysIn(message.arguments().value(1)));
}

void PortalHotKeys::tell(const QString &boundKeys)
{
    m_boundKeys = boundKeys;
    if (onBindingChanged)
        onBindingChanged();
}
