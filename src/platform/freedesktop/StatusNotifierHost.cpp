#include "platform/freedesktop/StatusNotifierHost.h"

#include "platform/freedesktop/SessionBus.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>

namespace {

constexpr auto service = u"org.kde.StatusNotifierWatcher";

QString serviceName() { return QStringView(service).toString(); }

} // namespace

StatusNotifierHost::StatusNotifierHost()
{
    if (!SessionBus::present())
        return;
    m_watcher.setConnection(QDBusConnection::sessionBus());
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    m_watcher.addWatchedService(serviceName());
    QObject::connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, &m_watcher, [this] {
        if (onAppeared)
            onAppeared();
    });
}

bool StatusNotifierHost::present() const
{
    if (!SessionBus::present())
        return false;
    const auto bus = QDBusConnection::sessionBus();
    return bus.isConnected() && bus.interface()->isServiceRegistered(serviceName());
}
