#include "platform/freedesktop/BusInstance.h"

#include "platform/freedesktop/SessionBus.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QTimer>

namespace {

const QString service = QStringLiteral("org.vellumora.Vellumora");
const QString object = QStringLiteral("/org/vellumora/Vellumora");
const QString captureAction = QStringLiteral("capturar");

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
    bus.registerObject(object, this);
    bus.interface()->registerService(service, QDBusConnectionInterface::QueueService);
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

void ApplicationAdaptor::Activate(const QVariantMap &) { m_instance.grantSoon(Wish::settings); }

void ApplicationAdaptor::Open(const QStringList &, const QVariantMap &)
{
    m_instance.grantSoon(Wish::settings);
}

void ApplicationAdaptor::ActivateAction(const QString &name, const QVariantList &, const QVariantMap &)
{
    m_instance.grantSoon(name == captureAction ? Wish::capture : Wish::settings);
}
