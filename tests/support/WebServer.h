#pragma once

#include <QHash>
#include <QSslConfiguration>
#include <QSslSocket>
#include <QTcpServer>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <optional>

// Runs a web server on this machine that sends exactly the bytes it is given.
class WebServer : public QTcpServer {
public:
    WebServer()
    {
        if (!listen(QHostAddress::LocalHost))
            qFatal("no port for the server");
        connect(this, &QTcpServer::newConnection, this, [this] { serve(*nextPendingConnection()); });
    }

    [[nodiscard]] QUrl url(const QString &path) const
    {
        return QUrl(
            QString("%1://127.0.0.1:%2%3").arg(encryption ? "https" : "http").arg(serverPort()).arg(path));
    }

    static QByteArray ok(const QByteArray &body)
    {
        return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
    }

    static QByteArray status(int code, const QByteArray &headers = {}, const QByteArray &body = "body")
    {
        return "HTTP/1.1 " + QByteArray::number(code) + " Said\r\nContent-Length: "
               + QByteArray::number(body.size()) + "\r\n" + headers + "\r\n" + body;
    }

    // Holds the whole answer for each path. Any other path is not found. An empty
    // answer leaves the connection open without sending anything.
    QHash<QString, QByteArray> answers;
    bool closesAfterwards = false;
    QList<QByteArray> requests; // with their headers
    // When set, the answers are sent byte by byte, with this pause in between.
    std::optional<std::chrono::milliseconds> drip;
    std::optional<QSslConfiguration> encryption;

protected:
    void incomingConnection(qintptr descriptor) override
    {
        if (!encryption)
            return QTcpServer::incomingConnection(descriptor);
        auto *socket = new QSslSocket(this);
        socket->setSocketDescriptor(descriptor);
        socket->setSslConfiguration(*encryption);
        socket->startServerEncryption();
        addPendingConnection(socket);
    }

private:
    void serve(QTcpSocket &socket)
    {
        connect(&socket, &QTcpSocket::readyRead, this, [this, &socket] {
            const QByteArray request = socket.peek(65536);
            if (!request.endsWith("\r\n\r\n"))
                return;
            socket.readAll();
            requests.append(request);
            const auto answer = answers.constFind(QString::fromLatin1(request.split(' ').value(1)));
            say(socket, answer == answers.constEnd() ? status(404) : *answer);
            if (closesAfterwards)
                socket.disconnectFromHost();
        });
        connect(&socket, &QTcpSocket::disconnected, &socket, &QObject::deleteLater);
    }

    void say(QTcpSocket &socket, const QByteArray &answer)
    {
        if (!drip) {
            socket.write(answer);
            return;
        }
        auto *timer = new QTimer(&socket);
        timer->callOnTimeout([timer, &socket, left = answer]() mutable {
            socket.write(left.first(1));
            if (left.remove(0, 1).isEmpty())
                timer->stop();
        });
        timer->start(*drip);
    }
};
