#include "platform/wayland/PortalRequest.h"

#include "platform/wayland/BusCall.h"

#include <QCoroSignal>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDeadlineTimer>
#include <QUuid>

namespace {

const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");

QDBusMessage messageOf(const PortalRequest::Call &call, const QString &token)
{
    auto message = QDBusMessage::createMethodCall(Portal::service, Portal::object,
                                                  Portal::interfaces + call.interface, call.method);
    QVariantMap options = call.options;
    options.insert(QStringLiteral("handle_token"), token);
    message.setArguments(call.arguments + QVariantList{options});
    return message;
}

// The name that the portal is going to give the request.
QString pathOf(const QDBusConnection &bus, const QString &token)
{
    const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

} // namespace

QString PortalRequest::token()
{
    return QStringLiteral("vellumora") + QUuid::createUuid().toString(QUuid::Id128);
}

PortalRequest::PortalRequest(QDBusConnection bus)
    : m_bus(std::move(bus))
    , m_portal(Portal::service, m_bus, QDBusServiceWatcher::WatchForUnregistration)
    , m_token(token())
{
    connect(&m_portal, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { answer({.problem = QStringLiteral("el portal ha muerto")}); });
    listenTo(pathOf(m_bus, m_token));
}

PortalRequest::~PortalRequest() = default;

QCoro::Task<PortalRequest::Answer> PortalRequest::send(QDBusConnection bus, Call call,
                                                       std::chrono::milliseconds patience)
{
    const QDeadlineTimer end(patience);
    PortalRequest request(bus);
    const QDBusMessage message = messageOf(call, request.m_token);
    const QDBusMessage reply = co_await BusCall::ask(bus, message, patience);
    if (reply.type() != QDBusMessage::ReplyMessage)
        request.answer({.problem = reply.errorName()});
    else
        request.listenTo(reply.arguments().value(0).value<QDBusObjectPath>().path());
    const std::chrono::milliseconds left(end.remainingTime());
    if (!request.m_answer)
        co_await qCoro(&request, &PortalRequest::answered, left);
    if (!request.m_answer) {
        request.close();
        request.answer({.problem = QStringLiteral("el portal no contesta")});
    }
    co_return *request.m_answer;
}

// Before the call, or the answer could come first. Old portals choose a path of their
// own, which is known only after it.
void PortalRequest::listenTo(const QString &path)
{
    if (path.isEmpty() || path == m_path)
        return;
    m_path = path;
    m_bus.connect(QString(), m_path, requestInterface, QStringLiteral("Response"), this,
                  SLOT(response(uint, QVariantMap)));
}

void PortalRequest::response(uint code, const QVariantMap &results)
{
    constexpr uint done = 0;
    constexpr uint cancelled = 1;
    if (code == done)
        answer({.results = results});
    else
        answer({.problem = code == cancelled ? QStringLiteral("cancelado") : QStringLiteral("denegado")});
}

// The first answer counts.
void PortalRequest::answer(const Answer &answer)
{
    if (m_answer)
        return;
    m_answer = answer;
    emit answered();
}

// The portal takes its dialog away.
void PortalRequest::close()
{
    m_bus.asyncCall(
        QDBusMessage::createMethodCall(Portal::service, m_path, requestInterface, QStringLiteral("Close")));
}
