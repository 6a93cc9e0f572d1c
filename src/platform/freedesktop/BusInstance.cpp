#include "platform/freedesktop/BusInstance.h"

#include "platform/ProgramId.h"
#include "platform/freedesktop/ActivationToken.h"
#include "platform/freedesktop/SessionBus.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QTimer>

namespace {

// By the program's name, as the interface wants it.
QString objectPath() { return u'/' + programId().replace(u'.', u'/').replace(u'-', u'_'); }

// The actions of the desktop entry.
std::optional<Wish> wishOf(const QString &action)
{
    if (action == u"capture")
        return Wish::capture;
    return action == u"settings" ? std::optional(Wish::settings) : std::nullopt;
}

QByteArray tokenIn(const QVariantMap &platformData)
{
    return platformData.value(QStringLiteral("activation-token")).toByteArray();
}

} // namespace

BusInstance::BusInstance(std::unique_ptr<SingleInstance> others) : m_others(std::move(others))
{
    m_others->onWish = [this](Wish wish) { grant(wish); };
}

void BusInstance::serve()
{
    m_others->serve();
    auto bus = SessionBus::present() ? QDBusConnection::sessionBus() : QDBusConnection(QString());
    if (!bus.isConnected())
        return;
    new ApplicationAdaptor(*this);
    bus.registerObject(objectPath(), this);
    bus.interface()->registerService(programId(), QDBusConnectionInterface::QueueService);
}

void BusInstance::grantSoon(Wish wish)
{
    QTimer::singleShot(0, this, [this, wish] { grant(wish); });
}

void BusInstance::grant(Wish wish) const
{
    if (onWish)
        onWish(wish);
}

ApplicationAdaptor::ApplicationAdaptor(BusInstance &instance)
    : QDBusAbstractAdaptor(&instance)
    , m_instance(instance)
{}

void ApplicationAdaptor::Activate(const QVariantMap &platformData)
{
    adoptActivation(tokenIn(platformData));
    m_instance.grantSoon(Wish::settings);
}

void ApplicationAdaptor::Open(const QStringList &, const QVariantMap &platformData)
{
    Activate(platformData);
}

void ApplicationAdaptor::ActivateAction(const QString &name, const QVariantList &,
                                        const QVariantMap &platformData, const QDBusMessage &message)
{
    const auto wish = wishOf(name);
    if (wish == Wish::settings)
        adoptActivation(tokenIn(platformData));
    if (wish)
        return m_instance.grantSoon(*wish);
    message.setDelayedReply(true);
    QDBusConnection::sessionBus().send(
        message.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("there is no action ") + name));
}
