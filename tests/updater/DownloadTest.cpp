#include "updater/Download.h"
#include "updater/SystemProxies.h"

#include "support/KeyPair.h"
#include "support/WebServer.h"

#include <QSslCertificate>
#include <QSslKey>
#include <QTest>

using namespace std::chrono_literals;

class DownloadTest : public QObject {
    Q_OBJECT

    WebServer server;
    QByteArray received;

    std::optional<QString> get(const QUrl &address, Download::Limits limits = {1000},
                               std::chrono::milliseconds patience = 20s)
    {
        received.clear();
        Download download(patience);
        return QCoro::waitFor(download.receive(address, limits, [this](const QByteArray &piece) {
            received += piece;
            return !received.contains("full");
        }));
    }

    std::optional<QString> get(const QByteArray &answer)
    {
        server.answers["/x"] = answer;
        return get(server.url("/x"));
    }

private slots:
    void init()
    {
        server.answers.clear();
        server.requests.clear();
        server.closesAfterwards = false;
        server.drip.reset();
        server.encryption.reset();
    }

    void theBytesComeAsTheyAre()
    {
        const QByteArray odd("a\0\r\n\xff", 5);
        QCOMPARE(get(WebServer::ok(odd)), std::nullopt);
        QCOMPARE(received, odd);
        QCOMPARE(get(WebServer::ok({})), std::nullopt);
        QCOMPARE(received, QByteArray());
        QCOMPARE(get(WebServer::ok(QByteArray(1000, 'x'))), std::nullopt);
        QCOMPARE(received.size(), 1000);
    }

    void nothingIsToldAboutTheUser()
    {
        server.answers["/x"]
            = WebServer::status(200, "Set-Cookie: a=b; Path=/\r\nCache-Control: max-age=999\r\n");
        Download download;
        for (int i = 0; i < 2; ++i)
            QCOMPARE(QCoro::waitFor(download.receive(server.url("/x"), {10}, [](auto) { return true; })),
                     std::nullopt);
        QCOMPARE(server.requests.size(), 2);
        for (const QByteArray &request : std::as_const(server.requests)) {
            QVERIFY(!request.toLower().contains("cookie"));
            QVERIFY(request.toLower().contains("cache-control: no-cache"));
        }
    }

    void onlyStatus200IsAnAnswer_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QString>("problem");
        QTest::newRow("not found") << WebServer::status(404) << "HTTP 404";
        QTest::newRow("broken") << WebServer::status(500) << "HTTP 500";
        QTest::newRow("a part") << WebServer::status(206) << "HTTP 206";
        QTest::newRow("made") << WebServer::status(201) << "HTTP 201";
        QTest::newRow("not changed") << WebServer::status(304, {}, {}) << "HTTP 304";
        QTest::newRow("password") << WebServer::status(401, "WWW-Authenticate: Basic realm=\"x\"\r\n")
                                  << "HTTP 401";
        QTest::newRow("to a page without protection")
            << WebServer::status(302, "Location: http://192.0.2.1/x\r\n") << "→ http://192.0.2.1/x";
        QTest::newRow("to a host called after this one")
            << WebServer::status(302, "Location: http://127.0.0.1.example/x\r\n")
            << "→ http://127.0.0.1.example/x";
        QTest::newRow("to a file") << WebServer::status(302, "Location: file:///etc/passwd\r\n") << "";
        QTest::newRow("to itself") << WebServer::status(302, "Location: /x\r\n")
                                   << "bucle de redirecciones → " + server.url("/x").toString();
        QTest::newRow("not HTTP") << QByteArray("hello\r\n\r\n") << "";
    }

    void onlyStatus200IsAnAnswer()
    {
        QFETCH(QByteArray, answer);
        QFETCH(QString, problem);
        server.closesAfterwards = answer.startsWith("hello");
        const auto said = get(answer);
        QVERIFY(said && !said->isEmpty());
        if (!problem.isEmpty())
            QCOMPARE(*said, problem);
        QCOMPARE(received, QByteArray());
    }

    // However much the server has to say about it, and even if it never ends.
    void aRedirectionOnThisMachineIsFollowed()
    {
        server.answers["/y"] = WebServer::ok("there");
        const QByteArray much(5000, 'x');
        QCOMPARE(get(WebServer::status(302, "Location: /y\r\n", much)), std::nullopt);
        QCOMPARE(received, "there");
        QCOMPARE(get(WebServer::status(307, "Location: /y\r\n", much).chopped(1)), std::nullopt);
        QCOMPARE(received, "there");
    }

    void aLoopIsCalledOne()
    {
        server.answers["/y"] = WebServer::status(301, "Location: /x\r\n");
        QVERIFY(get(WebServer::status(302, "Location: /y\r\n"))->startsWith("bucle de redirecciones"));
        QCOMPARE(server.requests.size(), 2);
        for (int i = 0; i < 12; ++i)
            server.answers[QString("/%1").arg(i)]
                = WebServer::status(302, "Location: /" + QByteArray::number(i + 1) + "\r\n");
        QVERIFY(get(server.url("/0"))->startsWith("bucle de redirecciones"));
    }

    void theSystemsProxiesAreUsed()
    {
        qputenv("https_proxy", server.url("").toEncoded());
        QVERIFY(get(QUrl("https://vellumora.example/x"), {1000}, 5s));
        qunsetenv("https_proxy");
        QVERIFY(server.requests.value(0).startsWith("CONNECT vellumora.example:443 "));
    }

    // The server that would say which proxies there are can only keep silent
    // while this thread is free to serve.
    void aSearchForProxiesThatHangsIsASilenceToo()
    {
        server.answers["/proxies"] = QByteArray();
        server.answers["/x"] = WebServer::ok("whole");
        qputenv("http_proxy", "pac+" + server.url("/proxies").toEncoded());
        const auto said = get(server.url("/x"), {1000}, 300ms);
        qunsetenv("http_proxy");
        QCOMPARE(said, "Socket operation timed out");
        QCOMPARE(server.requests.size(), 1);
        QVERIFY(SystemProxies::isBusy());
        for (auto *socket : server.findChildren<QTcpSocket *>())
            socket->abort();
        QTRY_VERIFY(!SystemProxies::isBusy());
    }

    void tooMuchIsCutOffWhileItComes()
    {
        QCOMPARE(get(WebServer::ok(QByteArray(1001, 'x'))), "> 1000 B");
        // Without a length there is no end but the limit's.
        server.answers["/x"] = "HTTP/1.1 200 OK\r\n\r\n" + QByteArray(5'000'000, 'x');
        QCOMPARE(get(server.url("/x")), "> 1000 B");
        QVERIFY(received.size() <= 1000);
    }

    void aSinkThatIsFullEndsIt() { QVERIFY(get(WebServer::ok("full"))); }

    void aTruncatedAnswerIsNone()
    {
        server.closesAfterwards = true;
        QVERIFY(get(WebServer::ok("whole").chopped(2)));
    }

    void silenceEndsIt_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("at once") << QByteArray();
        QTest::newRow("in the middle") << WebServer::ok("whole").chopped(2);
    }

    void silenceEndsIt()
    {
        QFETCH(QByteArray, answer);
        server.answers["/x"] = answer;
        QCOMPARE(get(server.url("/x"), {1000}, 200ms), "Socket operation timed out");
    }

    // One byte is never far from the next here.
    void aDripEndsIt_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QString>("problem");
        const QByteArray much(900, 'x');
        const QString late = "Socket operation timed out";
        QTest::newRow("of an answer") << "HTTP/1.1 200 OK\r\n\r\n" + much << late;
        QTest::newRow("of a header") << "HTTP/1.1 200 OK\r\nX: " + much << late;
        QTest::newRow("of a page about an error") << "HTTP/1.1 404 No\r\n\r\n" + much << "HTTP 404";
    }

    void aDripEndsIt()
    {
        QFETCH(QByteArray, answer);
        QFETCH(QString, problem);
        server.answers["/x"] = answer;
        server.drip = 5ms;
        QCOMPARE(get(server.url("/x"), {1000}, 500ms), problem);
        QVERIFY(received.size() < 900);
    }

    void whatComesSteadilyMayTakeLong()
    {
        server.answers["/x"] = WebServer::ok(QByteArray(100, 'x'));
        server.drip = 10ms;
        QCOMPARE(get(server.url("/x"), {.whole = 1000, .stretch = 5}, 700ms), std::nullopt);
        QCOMPARE(received.size(), 100);
    }

    void onlyACertificateThatTheSystemTrustsCounts()
    {
        const KeyPair key;
        const QSslCertificate certificate(key.certificatePem());
        server.encryption = QSslConfiguration::defaultConfiguration();
        server.encryption->setLocalCertificate(certificate);
        server.encryption->setPrivateKey(QSslKey(key.privatePem(), QSsl::Ec));
        QVERIFY(get(WebServer::ok("secret")));
        QVERIFY(server.requests.isEmpty());

        const QSslConfiguration usual = QSslConfiguration::defaultConfiguration();
        QSslConfiguration trusting = usual;
        trusting.addCaCertificate(certificate);
        QSslConfiguration::setDefaultConfiguration(trusting);
        const auto trusted = get(WebServer::ok("secret"));
        const auto down = get(WebServer::status(302, "Location: http://127.0.0.1/x\r\n"));
        QSslConfiguration::setDefaultConfiguration(usual);
        QCOMPARE(trusted, std::nullopt);
        QCOMPARE(down, "→ http://127.0.0.1/x"); // not even to this machine
    }

    void otherAddressesAreNotEvenTried()
    {
        for (const char *address :
             {"", "x", "file:///etc/passwd", "ftp://127.0.0.1/x", "http://192.0.2.1/x", "https://",
              "http://example.org/x", "data:,x", "qrc:/vellumora/vellumora.svg"}) {
            const auto problem = get(QUrl(address));
            QVERIFY2(problem && problem->startsWith("URL: "), address);
        }
        QVERIFY(server.requests.isEmpty());
    }

    void nobodyThereIsAProblem()
    {
        QUrl address = server.url("/x");
        address.setPort(1);
        QVERIFY(get(address));
        address.setScheme("https");
        address.setPort(server.serverPort());
        server.closesAfterwards = true;
        QVERIFY(get(address, {1000}, 500ms));
    }

    void itMayGoWhileItWaits()
    {
        server.answers["/x"] = QByteArray();
        auto download = std::make_unique<Download>();
        bool answered = false;
        auto task = download->receive(server.url("/x"), {10}, [](auto) { return true; });
        task.then([&](auto) { answered = true; });
        QTRY_COMPARE(server.requests.size(), 1);
        download.reset();
        QCoreApplication::processEvents();
        QVERIFY(!answered);
    }
};

QTEST_GUILESS_MAIN(DownloadTest)
#include "DownloadTest.moc"
