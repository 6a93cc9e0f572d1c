#pragma once

#include "updater/DownloadLimits.h"

#include <QCoroTask>
#include <QNetworkAccessManager>
#include <QObject>
#include <QUrl>

#include <chrono>
#include <optional>

class Reception;

// Fetches from the web without leaving or sending any trace: no cookies, no
// cache, no stored passwords. Only https is asked, and http on this machine
// itself; a redirection leads from the one to the other only if it started with
// http on this machine. The system's proxies are used.
class Download final : public QObject {
    Q_OBJECT

public:
    // How long each stretch of an answer may take.
    explicit Download(std::chrono::milliseconds patience = std::chrono::seconds(20));

    using Limits = DownloadLimits;
    using Sink = DownloadSink;

    // Absent when a whole answer with status 200 within the limits went into the
    // sink, else what went wrong. When this object goes, it never answers, or
    // only that.
    [[nodiscard]] QCoro::Task<std::optional<QString>> receive(QUrl address, Limits limits, Sink sink);

    // The bytes that came by now, of how many; -1 when nobody knows.
    Q_SIGNAL void progressed(qint64 received, qint64 total);

private:
    QCoro::Task<void> visit(QUrl address, Reception &reception);

    QNetworkAccessManager m_manager;
    const std::chrono::milliseconds m_patience;
};
