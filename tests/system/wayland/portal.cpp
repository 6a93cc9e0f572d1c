// A desktop's portal that takes pictures of the screens the way a test wants it.
//
//   portal BEHAVIOUR ...    one for each request, the last for all that follow:
//
//     file:///PATH          has made that picture, or says so
//     cancelled, refused    answers that nothing came of it
//     nothing               answers that all is well, but names no picture
//     silent                takes the request and never answers
//     dead                  ends in the middle of it
//
// Says "asked" on standard output at every request.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QTimer>
#include <QVariantMap>

#include <cstdio>

class Portal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Screenshot")
    Q_PROPERTY(uint version READ version)

public:
    explicit Portal(QStringList behaviours) : m_behaviours(std::move(behaviours)) {}
    uint version() const { return 2; }

public slots:
    QDBusObjectPath Screenshot(const QString &, const QVariantMap &options)
    {
        std::puts("asked");
        std::fflush(stdout);
        QString caller = message().service().mid(1);
        const QString handle = QString("/org/freedesktop/portal/desktop/request/%1/%2")
                                   .arg(caller.replace('.', '_'), options["handle_token"].toString());
        const QString behaviour = m_behaviours.size() > 1 ? m_behaviours.takeFirst() : m_behaviours.first();
        QTimer::singleShot(0, this, [=, this] { behave(behaviour, handle); });
        return QDBusObjectPath(handle);
    }

private:
    void behave(const QString &behaviour, const QString &handle)
    {
        if (behaviour == "dead")
            std::exit(EXIT_SUCCESS);
        else if (behaviour == "cancelled")
            answer(handle, 1, {});
        else if (behaviour == "refused")
            answer(handle, 2, {});
        else if (behaviour == "nothing")
            answer(handle, 0, {});
        else if (behaviour != "silent")
            answer(handle, 0, {{"uri", behaviour}});
    }

    void answer(const QString &handle, uint response, const QVariantMap &results)
    {
        auto signal = QDBusMessage::createSignal(handle, "org.freedesktop.portal.Request", "Response");
        signal << response << results;
        QDBusConnection::sessionBus().send(signal);
    }

    QStringList m_behaviours;
};

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (argc < 2)
        return EXIT_FAILURE;
    Portal portal(QCoreApplication::arguments().mid(1));
    auto bus = QDBusConnection::sessionBus();
    if (!bus.registerObject("/org/freedesktop/portal/desktop", &portal, QDBusConnection::ExportAllContents)
        || !bus.registerService("org.freedesktop.portal.Desktop"))
        return EXIT_FAILURE;
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}

#include "portal.moc"
