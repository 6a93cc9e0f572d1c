#pragma once

#include "updater/DownloadLimits.h"

#include <QNetworkReply>
#include <QPointer>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <optional>

// Receives one answer into the sink, across all redirections, and remembers the
// first thing that goes wrong.
class Reception {
public:
    Reception(QUrl address, const DownloadLimits &limits, std::chrono::milliseconds patience,
              DownloadSink sink);

    // Returns the address to ask next; absent at the end.
    [[nodiscard]] std::optional<QUrl> next() const { return m_problem ? std::nullopt : m_next; }
    // Returns the time left for the stretch in progress.
    [[nodiscard]] std::chrono::milliseconds timeLeft() const;

    // Takes the data of the reply as it arrives. finish() must be called when the
    // reply has finished.
    void follow(QNetworkReply &reply);
    void finish(QNetworkReply &reply);
    void timeOut();

    [[nodiscard]] const std::optional<QString> &problem() const { return m_problem; }

private:
    void take(QNetworkReply &reply);
    void redirect(QNetworkReply &reply, const QUrl &to);
    void stop(const QString &problem);

    const QUrl m_first;
    const DownloadLimits m_limits;
    const std::chrono::milliseconds m_patience;
    const DownloadSink m_sink;
    std::optional<QUrl> m_next;
    QList<QUrl> m_visited;
    qint64 m_received = 0; // bytes
    std::optional<QString> m_problem;
    QPointer<QNetworkReply> m_reply;
    QTimer m_stretch;
};
