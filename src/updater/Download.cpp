#include "updater/Download.h"

#include <QCoreApplication>
#include <QCoroNetworkReply>
#include <QHostAddress>
#include <QNetworkReply>
#include <QTimer>

#include <utility>

namespace {

constexpr int success = 200;
constexpr int mostRedirections = 10;
constexpr qint64 bufferSize = 262'144; // bytes

bool isThisMachine(const QString &host) { return host == u"localhost" || QHostAddress(host).isLoopback(); }

bool isAllowed(const QUrl &address)
{
    if (!address.isValid() || address.host().isEmpty())
        return false;
    return address.scheme() == u"https" || (address.scheme() == u"http" && isThisMachine(address.host()));
}

QNetworkRequest requestFor(const QUrl &address)
{
    QNetworkRequest request(address);
    request.setMaximumRedirectsAllowed(mostRedirections);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    // The bytes as they are signed, not as a server has packed them for the way.
    request.setRawHeader("Accept-Encoding", "identity");
    return request;
}

// One answer on its way into the sink, and the first thing that goes wrong.
class Reception {
public:
    Reception(QNetworkReply &reply, const Download::Limits &limits, std::chrono::milliseconds patience,
              Download::Sink sink)
        : m_reply(reply)
        , m_limits(limits)
        , m_sink(std::move(sink))
    {
        m_stretch.setSingleShot(true);
        m_stretch.setInterval(patience);
        m_stretch.callOnTimeout(
            [this] { stop(QCoreApplication::translate("QAbstractSocket", "Socket operation timed out")); });
        m_stretch.start();
        QObject::connect(&reply, &QNetworkReply::finished, &m_stretch, &QTimer::stop);
        reply.setReadBufferSize(bufferSize);
        QObject::connect(&reply, &QNetworkReply::redirected, &reply, [this](const QUrl &to) { follow(to); });
        QObject::connect(&reply, &QIODevice::readyRead, &reply, [this] { take(); });
    }

    // To be asked when the reply has finished.
    std::optional<QString> problem()
    {
        take();
        if (!m_problem && m_reply.error() != QNetworkReply::NoError)
            m_problem = m_reply.errorString();
        return m_problem;
    }

private:
    void follow(const QUrl &to)
    {
        if (isAllowed(to))
            emit m_reply.redirectAllowed();
        else
            stop(u"→ "_qs + to.toDisplayString());
    }

    void take()
    {
        if (m_problem)
            return;
        const auto status = m_reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
        if (status.isValid() && status != success) {
            // The page about it ends by itself, or when its time is over.
            m_problem = u"HTTP %1"_qs.arg(status.toInt());
            return;
        }
        const QByteArray piece = m_reply.isOpen() ? m_reply.readAll() : QByteArray();
        const qint64 before = std::exchange(m_received, m_received + piece.size());
        if (m_received > m_limits.whole)
            return stop(u"> %1 B"_qs.arg(m_limits.whole));
        if (!piece.isEmpty() && !m_sink(piece))
            return stop(u"%1 B"_qs.arg(m_received));
        if (before / m_limits.stretch < m_received / m_limits.stretch)
            m_stretch.start();
    }

    void stop(const QString &problem)
    {
        if (!m_problem)
            m_problem = problem;
        m_reply.abort();
    }

    QNetworkReply &m_reply;
    const Download::Limits m_limits;
    const Download::Sink m_sink;
    qint64 m_received = 0; // bytes
    std::optional<QString> m_problem;
    QTimer m_stretch;
};

} // namespace

Download::Download(std::chrono::milliseconds patience) : m_patience(patience) {}

QCoro::Task<std::optional<QString>> Download::receive(QUrl address, Limits limits, Sink sink)
{
    if (!isAllowed(address))
        co_return u"URL: %1"_qs.arg(address.toDisplayString());
    auto *reply = m_manager.get(requestFor(address));
    Reception reception(*reply, limits, m_patience, std::move(sink));
    co_await reply;
    const auto problem = reception.problem();
    reply->disconnect();
    reply->deleteLater();
    co_return problem;
}
