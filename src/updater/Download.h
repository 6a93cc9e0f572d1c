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
    // How long each stretch of an answer may take.
    explicit Download(std::chrono::milliseconds patience = std::chrono::seconds(20));

    // All in bytes. A server that drips would hold an answer open for ever, so
    // every stretch of it has a time of its own, the first from the request on.
    struct Limits {
        qint64 whole; // at most
        qint64 stretch = whole;
    };

    // Is given the bytes as they come; false ends the download.
    using Sink = std::function<bool(const QByteArray &)>;

    // Absent when a whole answer with status 200 within the limits went into the
    // sink, else what went wrong. When this object goes, it never answers.
    [[nodiscard]] QCoro::Task<std::optional<QString>> receive(QUrl address, Limits limits, Sink sink);

private:
    QNetworkAccessManager m_manager;
    const std::chrono::milliseconds m_patience;
};
