#include "app/SingleInstance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QTimer>

namespace {

const QString service = QStringLiteral("org.vellumora.Vellumora");
const QString object = QStringLiteral("/org/vellumora/Vellumora");
const QString interface = QStringLiteral("org.freedesktop.Application");
const QString captureAction = QStringLiteral("capturar");
const QString settingsAction = QStringLiteral("ajustes");
constexpr int patience = 3000; // milliseconds

} // namespace

bool SingleInstance::claim()
{
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return true;
    new ApplicationAdaptor(*this);
    return bus.registerObject(object, this) && bus.registerService(service);
}

bool SingleInstance::passOn(Wish wish) const
{
    auto call = QDBusMessage::createMethodCall(service, object, interface, QStringLiteral("ActivateAction"));
    call << (wish == Wish::capture ? captureAction : settingsAction) << QVariantList() << QVariantMap();
    return QDBusConnection::sessionBus().call(call, QDBus::Block, patience).type()
           == QDBusMessage::ReplyMessage;
}

ApplicationAdaptor::ApplicationAdaptor(SingleInstance &instance)
    : QDBusAbstractAdaptor(&instance)
    , m_instance(instance)
{}

// The caller gets its answer before the wish is granted, which may take long.
void ApplicationAdaptor::grant(SingleInstance::Wish wish)
{
    QTimer::singleShot(0, this, [this, wish] {
        if (m_instance.onWish)
            m_instance.onWish(wish);
    });
}

void ApplicationAdaptor::Activate(const QVariantMap &) { grant(SingleInstance::Wish::settings); }

void ApplicationAdaptor::Open(const QStringList &, const QVariantMap &)
{
    grant(SingleInstance::Wish::settings);
}

void ApplicationAdaptor::ActivateAction(const QString &name, const QVariantList &, const QVariantMap &)
{
    grant(name == captureAction ? SingleInstance::Wish::capture : SingleInstance::Wish::settings);
}
