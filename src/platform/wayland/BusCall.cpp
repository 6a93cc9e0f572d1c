#include "platform/wayland/BusCall.h"

#include <QCoroSignal>
#include <QDBusPendingCallWatcher>

namespace BusCall {

QCoro::Task<QDBusMessage> ask(QDBusConnection bus, QDBusMessage call, std::chrono::milliseconds patience)
{
    const QDBusPendingCall pending = bus.asyncCall(call, static_cast<int>(patience.count()));
    QDBusPendingCallWatcher watcher(pending);
    co_await qCoro(&watcher, &QDBusPendingCallWatcher::finished);
    const QDBusMessage reply = watcher.reply();
    co_return reply;
}

} // namespace BusCall
