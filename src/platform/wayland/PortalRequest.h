#pragma once

#include <QCoroTask>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariantMap>

#include <chrono>

// One request to the desktop's portal. A portal answers it twice: at once, with
// the name of the request, and by a signal, when the user has decided.
class PortalRequest final : public QObject {
    Q_OBJECT

public:
    // Absent results and a problem for the log when the portal did not do as asked:
    // there is none, it died, it refused, the user cancelled, or nothing came in time.
    struct Answer {
        std::optional<QVariantMap> results = {};
        QString problem = {};
    };

    struct Call {
        QString interface; // "org.freedesktop.portal." stands before it
        QString method;
        QVariantList arguments; // those before the options
        QVariantMap options;
    };

    // Makes the call and returns the user's answer.
    [[nodiscard]] static QCoro::Task<Answer> send(QDBusConnection bus, Call call,
                                                  std::chrono::milliseconds patience);

    // Returns a name that nobody guesses, for requests and sessions.
    [[nodiscard]] static QString token();

    // A connection to the bus has to outlive what it is asked for.
    explicit PortalRequest(QDBusConnection bus);
    ~PortalRequest() override;

signals:
    void answered();

private slots:
    void response(uint code, const QVariantMap &results);

private:
    void listenTo(const QString &path);
    void answer(const Answer &answer);
    void close();

    QDBusConnection m_bus;
    QDBusServiceWatcher m_portal;
    QString m_token;
    QString m_path;
    std::optional<Answer> m_answer;
};

// Where the portal is on the bus.
namespace Portal {

inline const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
inline const QString interfaces = QStringLiteral("org.freedesktop.portal.");

} // namespace Portal
