#pragma once

#include "updater/DownloadLimits.h"

#include <QCoroTask>
#include <QNetworkAccessManager>
#include <QObject>
#include <QUrl>

#include <chrono>
#include <optional>

class Reception;

// Fetches from the web without sending or leaving any trace: no cookies, no cache,
// no stored passwords. Only https addresses are fetched, and http on this machine;
// a redirection to http is followed only from http on this machine. The system's
// proxies are used.
class Download final : public QObject {
    Q_OBJECT

public:
    // Takes the time that each stretch of an answer may take.
    explicit Download(std::chrono::milliseconds patience = std::chrono::seconds(20));

    using Limits = DownloadLimits;
    using Sink = DownloadSink;

    // Writes the answer into the sink. Returns nothing when a complete answer with
    // status 200 has arrived within the limits, otherwise what went wrong. If this
    // object is destroyed meanwhile, the task may never finish.
    [[nodiscard]] QCoro::Task<std::optional<QString>> receive(QUrl address, Limits limits, Sink sink);

    // Reports the bytes received so far and their total number, -1 when unknown.
    Q_SIGNAL void progressed(qint64 received, qint64 total);

private:
    QCoro::Task<void> visit(QUrl address, Reception &reception);

    QNetworkAccessManager m_manager;
    const std::chrono::milliseconds m_patience;
};
