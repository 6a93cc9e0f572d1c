#include "updater/SystemProxies.h"

#include <QNetworkProxyFactory>
#include <QPromise>

#include <QThread>

#include <atomic>
#include <memory>

namespace {

std::atomic<int> lookUps = 0;

} // namespace

namespace SystemProxies {

QFuture<List> of(const QUrl &address)
{
    const auto promise = std::make_shared<QPromise<List>>();
    promise->start();
    ++lookUps;
    // Nobody's child: a thread of a pool would be waited for at the end.
    QThread *thread = QThread::create([address, promise] {
        promise->addResult(QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(address)));
        promise->finish();
        --lookUps;
    });
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
    return promise->future();
}

bool isBusy() { return lookUps > 0; }

} // namespace SystemProxies
