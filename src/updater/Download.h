#pragma once

#include <QCoroTask>
#include <QNetworkAccessManager>
#include <QObject>
#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>

// Fetches from the web without leaving or sending any trace: no cookies, no
// cache, no stored passwords. Only https is asked, and http on this machine
// itself; a redirection may not lead anywhere else.
class Download final : public QObject {
    Q_OBJECT

public:
    // How long the other side may be silent.
    explicit Download(std::chrono::milliseconds patience = std::chrono::seconds(20));

    // Is given the bytes as they come; false ends the download.
    using Sink = std::function<bool(const QByteArray &)>;

    // Absent when a whole answer with status 200 of at most so many bytes went
    // into the sink, else what went wrong. When this object goes, it never answers.
    [[nodiscard]] QCoro::Task<std::optional<QString>> receive(QUrl address, qint64 limit, Sink sink);

private:
    QNetworkAccessManager m_manager;
    const std::chrono::milliseconds m_patience;
};
