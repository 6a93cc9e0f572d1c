// A panel without a picture: offers itself as the place for status notifier
// items and prints the bus name of every item that registers.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>

#include <cstdio>

class Panel : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hosts)
    Q_PROPERTY(int ProtocolVersion READ protocol)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)

public:
    bool hosts() const { return true; }
    int protocol() const { return 0; }
    QStringList items() const { return m_items; }

public slots:
    void RegisterStatusNotifierItem(const QString &)
    {
        m_items.append(message().service());
        std::printf("item %s\n", qPrintable(message().service()));
        std::fflush(stdout);
        emit StatusNotifierItemRegistered(message().service());
    }
    void RegisterStatusNotifierHost(const QString &) {}

signals:
    void StatusNotifierItemRegistered(const QString &);

private:
    QStringList m_items;
};

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    Panel panel;
    auto bus = QDBusConnection::sessionBus();
    if (!bus.registerObject("/StatusNotifierWatcher", &panel, QDBusConnection::ExportAllContents)
        || !bus.registerService("org.kde.StatusNotifierWatcher"))
        return 1;
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}

#include "panel.moc"
