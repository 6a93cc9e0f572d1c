#include "updater/Download.h"

#include "updater/Reception.h"
#include "updater/SystemProxies.h"

#include <QCoroNetworkReply>
#include <QCoroSignal>
#include <QFutureWatcher>
#include <QNetworkProxyFactory>
#include <QPointer>

#include <utility>

namespace {

constexpr qint64 bufferSize = 262'144; // bytes

QNetworkRequest requestFor(const QUrl &address)
{
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    // The bytes as they are signed, not as a server has packed them for the way.
    request.setRawHeader("Accept-Encoding", "identity");
    return request;
}

// Answers with what was found beforehand: Qt would look it up in this thread,
// and everything else would wait.
class FoundProxies final : public QNetworkProxyFactory {
public:
    explicit FoundProxies(SystemProxies::List found) : m_found(std::move(found)) {}
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &) override { return m_found; }

private:
    const SystemProxies::List m_found;
};

} // namespace

Download::Download(std::chrono::milliseconds patience) : m_patience(patience) {}

QCoro::Task<std::optional<QString>> Download::receive(QUrl address, Limits limits, Sink sink)
{
    const QPointer<Download> alive(this);
    Reception reception(std::move(address), limits, m_patience, std::move(sink));
    while (alive && reception.next()) {
        const QUrl next = *reception.next();
        co_await visit(next, reception);
    }
    co_return reception.problem();
}

QCoro::Task<void> Download::visit(QUrl address, Reception &reception)
{
    const QPointer<Download> alive(this);
    QFutureWatcher<SystemProxies::List> proxies;
    proxies.setFuture(SystemProxies::of(address));
    co_await qCoro(&proxies, &QFutureWatcherBase::finished, reception.timeLeft());
    if (!proxies.isFinished())
        reception.timeOut();
    if (!alive || reception.problem())
        co_return;
    m_manager.setProxyFactory(new FoundProxies(proxies.result()));
    auto *reply = m_manager.get(requestFor(address));
    reply->setReadBufferSize(bufferSize);
    connect(reply, &QNetworkReply::downloadProgress, this, &Download::progressed);
    reception.follow(*reply);
    co_await reply;
    reception.finish(*reply);
    reply->deleteLater();
}
