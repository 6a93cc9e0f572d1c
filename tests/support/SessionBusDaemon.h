#pragma once

#include <QDir>
#include <QFileInfo>
#include <QProcess>

// A message bus of the test's own, with services on it that the test chooses. Made
// before anything asks for the session's.
class SessionBusDaemon {
public:
    SessionBusDaemon()
    {
        m_daemon.start("dbus-daemon", {"--config-file=" + configuration(), "--nofork", "--print-address"});
        if (!m_daemon.waitForReadyRead())
            qFatal("there is no dbus-daemon");
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_daemon.readLine().trimmed());
    }
    ~SessionBusDaemon()
    {
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(SessionBusDaemon)

private:
    static QString configuration() { return QFileInfo(__FILE__).dir().filePath("bus.conf"); }

    QProcess m_daemon;
};

// A program with a service on the bus, for as long as it lives. The first that it says
// is that it is ready.
class BusService {
public:
    BusService(const QString &program, const QStringList &arguments)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(program, arguments);
        if (!m_process.waitForReadyRead())
            qFatal("%s does not come up", qPrintable(program));
        m_process.readLine();
    }
    ~BusService()
    {
        m_process.terminate();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(BusService)

    void tell(const QByteArray &line) { m_process.write(line + '\n'); }
    // Everything that it has said since.
    [[nodiscard]] const QByteArray &said()
    {
        m_said += m_process.readAllStandardOutput();
        return m_said;
    }

private:
    QProcess m_process;
    QByteArray m_said;
};
