#include "updater/Reception.h"

#include <QCoreApplication>
#include <QHostAddress>

#include <array>
#include <utility>

namespace {

constexpr int success = 200;
constexpr std::array redirections{301, 302, 303, 307, 308};
constexpr int mostRedirections = 10;

bool isThisMachine(const QString &host) { return host == u"localhost" || QHostAddress(host).isLoopback(); }

bool isPlainHere(const QUrl &address) { return address.scheme() == u"http" && isThisMachine(address.host()); }

// What has begun under protection never goes on without.
bool isAllowed(const QUrl &address, const QUrl &first)
{
    if (!address.isValid() || address.host().isEmpty())
        return false;
    return address.scheme() == u"https" || (isPlainHere(address) && isPlainHere(first));
}

int statusOf(const QNetworkReply &reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

// Absent when the answer is not one that leads on.
std::optional<QUrl> targetOf(const QNetworkReply &reply)
{
    const auto target = reply.attribute(QNetworkRequest::RedirectionTargetAttribute);
    if (!target.isValid() || std::ranges::find(redirections, statusOf(reply)) == redirections.end())
        return std::nullopt;
    return reply.url().resolved(target.toUrl());
}

} // namespace

Reception::Reception(QUrl address, const DownloadLimits &limits, std::chrono::milliseconds patience,
                     DownloadSink sink)
    : m_first(std::move(address))
    , m_limits(limits)
    , m_patience(patience)
    , m_sink(std::move(sink))
{
    m_stretch.setSingleShot(true);
    m_stretch.callOnTimeout([this] { timeOut(); });
    m_stretch.start(patience);
    if (isAllowed(m_first, m_first))
        m_next = m_first;
    else
        m_problem = u"URL: %1"_qs.arg(m_first.toDisplayString());
}

std::chrono::milliseconds Reception::timeLeft() const { return m_stretch.remainingTimeAsDuration(); }

void Reception::follow(QNetworkReply &reply)
{
    m_visited.append(reply.url());
    m_next.reset();
    m_reply = &reply;
    QObject::connect(&reply, &QNetworkReply::metaDataChanged, &reply, [this, &reply] { take(reply); });
    QObject::connect(&reply, &QIODevice::readyRead, &reply, [this, &reply] { take(reply); });
}

void Reception::finish(QNetworkReply &reply)
{
    take(reply);
    reply.disconnect();
    if (!m_problem && !m_next && reply.error() != QNetworkReply::NoError)
        m_problem = reply.errorString();
}

void Reception::timeOut()
{
    stop(QCoreApplication::translate("QAbstractSocket", "Socket operation timed out"));
}

void Reception::take(QNetworkReply &reply)
{
    if (m_problem || m_next)
        return;
    if (const auto target = targetOf(reply))
        return redirect(reply, *target);
    if (statusOf(reply) != 0 && statusOf(reply) != success) {
        // The page about it ends by itself, or when its time is over.
        m_problem = u"HTTP %1"_qs.arg(statusOf(reply));
        return;
    }
    const QByteArray piece = reply.isOpen() ? reply.readAll() : QByteArray();
    const qint64 before = std::exchange(m_received, m_received + piece.size());
    if (m_received > m_limits.whole)
        return stop(u"> %1 B"_qs.arg(m_limits.whole));
    if (!piece.isEmpty() && !m_sink(piece))
        return stop(u"%1 B"_qs.arg(m_received));
    if (before / m_limits.stretch < m_received / m_limits.stretch)
        m_stretch.start(m_patience);
}

// Whatever comes with it is of no interest.
void Reception::redirect(QNetworkReply &reply, const QUrl &to)
{
    if (!isAllowed(to, m_first))
        return stop(u"→ "_qs + to.toDisplayString());
    if (m_visited.contains(to) || m_visited.size() > mostRedirections)
        return stop(u"bucle de redirecciones → "_qs + to.toDisplayString());
    m_next = to;
    reply.abort();
}

void Reception::stop(const QString &problem)
{
    if (!m_problem)
        m_problem = problem;
    if (m_reply)
        m_reply->abort();
}
