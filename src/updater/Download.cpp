#include "updater/Download.h"

#include <QCoreApplication>
#include <QCoroNetworkReply>
#include <QHostAddress>
#include <QNetworkReply>

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

QNetworkRequest requestFor(const QUrl &address, std::chrono::milliseconds patience)
{
    QNetworkRequest request(address);
    request.setTransferTimeout(static_cast<int>(patience.count()));
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
    Reception(QNetworkReply &reply, qint64 limit, Download::Sink sink)
        : m_reply(reply)
        , m_limit(limit)
        , m_sink(std::move(sink))
    {
        reply.setReadBufferSize(bufferSize);
        QObject::connect(&reply, &QNetworkReply::redirected, &reply, [this](const QUrl &to) { follow(to); });
        QObject::connect(&reply, &QIODevice::readyRead, &reply, [this] { take(); });
    }

    // To be asked when the reply has finished.
    std::optional<QString> problem()
    {
        if (!m_problem && m_reply.error() == QNetworkReply::OperationCanceledError)
            m_problem = QCoreApplication::translate("QAbstractSocket", "Socket operation timed out");
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
        if (status.isValid() && status != success)
            return stop(u"HTTP %1"_qs.arg(status.toInt()));
        const QByteArray piece = m_reply.isOpen() ? m_reply.readAll() : QByteArray();
        m_received += piece.size();
        if (m_received > m_limit)
            return stop(u"> %1 B"_qs.arg(m_limit));
        if (!piece.isEmpty() && !m_sink(piece))
            stop(u"%1 B"_qs.arg(m_received));
    }

    void stop(const QString &problem)
    {
        m_problem = problem;
        // A page about an error ends by itself, or by the silence once nobody reads it.
        if (m_reply.error() == QNetworkReply::NoError)
            m_reply.abort();
    }

    QNetworkReply &m_reply;
    const qint64 m_limit; // bytes
    const Download::Sink m_sink;
    qint64 m_received = 0; // bytes
    std::optional<QString> m_problem;
};

} // namespace

Download::Download(std::chrono::milliseconds patience) : m_patience(patience) {}

QCoro::Task<std::optional<QString>> Download::receive(QUrl address, qint64 limit, Sink sink)
{
    if (!isAllowed(address))
        co_return u"URL: %1"_qs.arg(address.toDisplayString());
    auto *reply = m_manager.get(requestFor(address, m_patience));
    Reception reception(*reply, limit, std::move(sink));
    co_await reply;
    const auto problem = reception.problem();
    reply->disconnect();
    reply->deleteLater();
    co_return problem;
}
