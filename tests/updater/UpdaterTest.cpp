#include "updater/Updater.h"

#include "base/Defaults.h"
#include "l10n/L10n.h"
#include "updater/ProgressWindow.h"

#include "fakes/FakeDesktop.h"
#include "fakes/RecordingInstaller.h"
#include "support/KeyPair.h"
#include "support/TempHome.h"
#include "support/WebServer.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>

namespace {

QList<QMessageBox *> alerts()
{
    QList<QMessageBox *> shown;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *box = qobject_cast<QMessageBox *>(widget); box && box->isVisible())
            shown.append(box);
    return shown;
}

bool progressShows()
{
    return std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget *window) {
        return window->isVisible() && dynamic_cast<ProgressWindow *>(window);
    });
}

} // namespace

class UpdaterTest : public QObject {
    Q_OBJECT

    TempHome home;
    const KeyPair key;
    WebServer server;
    FakeDesktop desktop;
    std::unique_ptr<RecordingInstaller> installer;
    std::unique_ptr<Updater> updater;
    QByteArray archive;
    int ends = 0;
    bool capturing = false;

    void start(const QString &program)
    {
        updater.reset();
        installer = std::make_unique<RecordingInstaller>(program);
        updater = std::make_unique<Updater>(*installer, desktop, key.publicPem());
        updater->busy = [this] { return capturing; };
        updater->terminate = [this] { ++ends; };
    }

    [[nodiscard]] QByteArray manifest(const QByteArray &version, const QByteArray &digest = {}) const
    {
        const QByteArray sha256
            = QCryptographicHash::hash(archive, QCryptographicHash::Sha256).toHex().toUpper();
        const QJsonObject item{{"url", server.url("/archive").toString()},
                               {"sha256", QString(digest.isEmpty() ? sha256 : digest)}};
        const QJsonObject notes{{"en", "<b>New</b>"}};
        return QJsonDocument(QJsonObject{{"version", QString(version)}, {"novedades", notes}, {"mac", item}})
            .toJson();
    }

    void serve(const QByteArray &bytes)
    {
        server.answers["/actualizacion.json"] = WebServer::ok(bytes);
        server.answers["/actualizacion.sig"] = WebServer::ok(key.sign(bytes) + "\n");
        server.answers["/archive"] = WebServer::ok(archive);
    }

    [[nodiscard]] QByteArray lastLine() const { return home.log().trimmed().split('\n').last().mid(26); }

    void answer(int button)
    {
        QTRY_COMPARE(alerts().size(), 1);
        const QPointer<QMessageBox> box = alerts().first();
        QTest::mouseClick(box->findChildren<QPushButton *>().at(button), Qt::LeftButton);
        QTRY_VERIFY(!box);
    }

    // Waits for the alert and gives its two texts.
    [[nodiscard]] static QStringList alertTexts()
    {
        if (!QTest::qWaitFor([] { return !alerts().isEmpty(); }))
            return {};
        return {alerts().first()->text(), alerts().first()->informativeText()};
    }

    void settle(qsizetype requests)
    {
        QTRY_COMPARE(server.requests.size(), requests);
        QTRY_VERIFY(!home.log().isEmpty());
    }

private slots:
    void init()
    {
        qunsetenv("VELLUMORA_PRUEBA_ACTUALIZAR");
        QFile::remove(home.path("Library/Logs/Vellumora.log"));
        QDir().mkpath(home.path("tmp"));
        qputenv("TMPDIR", home.path("tmp").toLocal8Bit());
        const QString packed = home.path("packed.tar.gz");
        QDir().mkpath(home.path("new/Vellumora.app/bin"));
        QCOMPARE(QProcess::execute("tar", {"-czf", packed, "-C", home.path("new"), "Vellumora.app"}), 0);
        archive = home.read("packed.tar.gz");
        server.answers.clear();
        server.requests.clear();
        desktop.opened.clear();
        ends = 0;
        capturing = false;
        Defaults::setValue(Defaults::updateAddressKey, server.url("/actualizacion.json").toString());
        start(home.path("Vellumora.app/bin/vellumora"));
    }

    void cleanup()
    {
        for (QMessageBox *box : alerts())
            box->close();
        updater.reset();
        QDir(home.path("tmp")).removeRecursively();
        qunsetenv("TMPDIR");
    }

    void theAddressesAreDerived()
    {
        QCOMPARE(Updater::signatureURL(QUrl("https://a/b.c/d.e.json?x=1")),
                 QUrl("https://a/b.c/d.e.sig?x=1"));
        QCOMPARE(Updater::signatureURL(QUrl("https://a/b.c/d")), QUrl("https://a/b.c/d.sig"));
        QCOMPARE(Updater::signatureURL(QUrl("https://a/%2E%20b.json")), QUrl("https://a/.%20b.sig"));
        QSettings("Vellumora", "Vellumora").remove("urlActualizacion");
        QCOMPARE(Updater::manifestURL(), QUrl(L10n::web(Lang::es).toString() + "actualizacion.json"));
    }

    void nothingNewIsSaidOnlyToWhoAsks()
    {
        serve(manifest(Updater::current().toUtf8()));
        updater->check(Updater::Asked::byItself);
        settle(2);
        QCOMPARE(lastLine(), "actualizacion: web " + Updater::current().toUtf8() + ", instalada "
                                 + Updater::current().toUtf8());
        QVERIFY(alerts().isEmpty());
        updater->check(Updater::Asked::byUser);
        QCOMPARE(alertTexts(), (QStringList{"You're up to date",
                                            "Vellumora " + Updater::current() + " is the latest version."}));
    }

    void twoRequestsAreOneCheckAndOneAlert()
    {
        serve(manifest("0"));
        updater->check(Updater::Asked::byUser);
        updater->check(Updater::Asked::byUser);
        QTRY_COMPARE(alerts().size(), 1);
        updater->check(Updater::Asked::byUser);
        QCoreApplication::processEvents();
        QCOMPARE(alerts().size(), 1);
        QCOMPARE(server.requests.size(), 2);
        answer(0);
        updater->check(Updater::Asked::byUser);
        QTRY_COMPARE(server.requests.size(), 4);
    }

    void whatIsNotSignedIsIgnored_data()
    {
        QTest::addColumn<QByteArray>("manifestSent");
        QTest::addColumn<QByteArray>("signature");
        const QByteArray good = manifest("99");
        QTest::newRow("a blank more") << good + " " << key.sign(good);
        QTest::newRow("another key") << good << KeyPair().sign(good);
        QTest::newRow("no signature") << good << QByteArray("<html>");
        QTest::newRow("an empty signature") << good << QByteArray();
        QTest::newRow("bad JSON as well") << QByteArray("x") << key.sign(good);
    }

    void whatIsNotSignedIsIgnored()
    {
        QFETCH(QByteArray, manifestSent);
        QFETCH(QByteArray, signature);
        serve(manifestSent);
        server.answers["/actualizacion.sig"] = WebServer::ok(signature);
        updater->check(Updater::Asked::byUser);
        QCOMPARE(alertTexts(),
                 (QStringList{"Couldn't check for updates",
                              "The website's answer wasn't signed by KLV, so nothing was installed."}));
        QCOMPARE(home.log().count('\n'), 1);
        QCOMPARE(lastLine(), "actualizacion: firma NO valida, se ignora");
    }

    void anyOtherTroubleIsTheConnections_data()
    {
        QTest::addColumn<QString>("without");
        QTest::addColumn<QByteArray>("answered");
        QTest::newRow("no manifest") << "/actualizacion.json" << WebServer::status(404);
        QTest::newRow("no signature") << "/actualizacion.sig" << WebServer::status(404);
        QTest::newRow("too large") << "/actualizacion.sig" << WebServer::ok(QByteArray(1024 * 1024 + 1, ' '));
        QTest::newRow("signed nonsense") << "" << QByteArray();
    }

    void anyOtherTroubleIsTheConnections()
    {
        QFETCH(QString, without);
        QFETCH(QByteArray, answered);
        serve(without.isEmpty() ? "{}" : manifest("99"));
        server.answers[without] = answered;
        updater->check(Updater::Asked::byUser);
        QCOMPARE(alertTexts(),
                 (QStringList{"Couldn't check", "Can't reach the Vellumora website. Try again later."}));
        QVERIFY(lastLine().startsWith("actualizacion: sin conexion o error ("));
        answer(0);
        updater->check(Updater::Asked::byItself);
        QTRY_COMPARE(home.log().count('\n'), 2);
        QVERIFY(alerts().isEmpty());
    }

    void anAddressThatIsNoneEndsNothing()
    {
        Defaults::setValue(Defaults::updateAddressKey, "http://[oops");
        updater->check(Updater::Asked::byUser);
        QCOMPARE(alertTexts().value(0), "Couldn't check");
    }

    void aNewerVersionIsOffered()
    {
        serve(manifest("99.1"));
        updater->check(Updater::Asked::byItself);
        QCOMPARE(alertTexts(), (QStringList{"A new version of Vellumora is available (99.1)",
                                            "<b>New</b>\n\nYou have " + Updater::current()
                                                + ". It installs itself in a few seconds and opens again."}));
        for (const auto *label : alerts().first()->findChildren<QLabel *>())
            QVERIFY(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
        QCOMPARE(alerts().first()->defaultButton()->text(), "Update");
        answer(1);
        QCOMPARE(server.requests.size(), 2);
        QVERIFY(installer->script.isEmpty());
    }

    void anAcceptedUpdateIsStagedAndEndsTheProgram()
    {
        serve(manifest("99.1"));
        qputenv("TMPDIR", QDir::current().relativeFilePath(home.path("tmp")).toLocal8Bit());
        updater->check(Updater::Asked::byItself);
        answer(0);
        QTRY_COMPARE(ends, 1);
        QCOMPARE(lastLine(), "actualizacion: instalando 99.1");
        const auto left = QDir(home.path("tmp")).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot);
        QCOMPARE(left.size(), 1);
        const QString work = left.first().filePath();
        QVERIFY(QRegularExpression("/vellumora-act-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$")
                    .match(work)
                    .hasMatch());
        QCOMPARE(left.first().permissions()
                     & (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther),
                 QFile::Permissions());
        QCOMPARE(QDir(work).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 (QStringList{"c.dmg", "Vellumora.app"}));
        for (const QString &path : {home.path("Vellumora.app"), work, work + "/Vellumora.app"})
            QVERIFY(installer->script.contains("\"" + path + "\""));
        QVERIFY(installer->script.contains("kill -0 " + QString::number(QCoreApplication::applicationPid())
                                           + " "));
    }

    void withoutAQuestionOnlyWhenTheVariableIsOne()
    {
        serve(manifest("99.1"));
        qputenv("VELLUMORA_PRUEBA_ACTUALIZAR", "true");
        updater->check(Updater::Asked::byItself);
        answer(1);
        qputenv("VELLUMORA_PRUEBA_ACTUALIZAR", "1");
        QCoreApplication::processEvents();
        updater->check(Updater::Asked::byItself);
        QTRY_COMPARE(ends, 1);
    }

    void aCaptureIsNeitherDisturbedNorLost()
    {
        serve(manifest("99.1"));
        capturing = true;
        updater->check(Updater::Asked::byUser);
        QTRY_VERIFY(home.log().contains("web 99.1"));
        QCoreApplication::processEvents();
        QVERIFY(alerts().isEmpty());
        emit updater->captureEnded(); // but another one has begun
        QCoreApplication::processEvents();
        QVERIFY(alerts().isEmpty());
        capturing = false;
        emit updater->captureEnded();
        QTRY_COMPARE(alerts().size(), 1);
        capturing = true;
        answer(0);
        QTRY_VERIFY(progressShows());
        const auto staged = [this] {
            const auto left = QDir(home.path("tmp")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
            return !left.isEmpty() && QFile::exists(home.path("tmp/" + left.first() + "/Vellumora.app"))
                   && !QFile::exists(home.path("tmp/" + left.first() + "/mnt"));
        };
        QTRY_VERIFY(staged());
        QCoreApplication::processEvents();
        QCOMPARE(ends, 0);
        QVERIFY(installer->script.isEmpty());
        capturing = false;
        emit updater->captureEnded();
        QTRY_COMPARE(ends, 1);
    }

    void failuresSayWhyAndLeadToTheWebsite_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("trouble");
        QTest::addColumn<QString>("message");
        const QString inside = home.path("Vellumora.app/bin/vellumora");
        const QString noRoom = "Vellumora isn't in a folder it can write to.";
        QTest::newRow("no bundle") << "/usr/bin/vellumora"
                                   << "" << noRoom;
        QTest::newRow("a folder that cannot be written") << "/proc/self/Vellumora.app/bin/vellumora"
                                                         << "" << noRoom;
        QTest::newRow("a path that no script can quote")
            << home.path("a$b.app/bin/vellumora") << ""
            << "Couldn't download or install (" + home.path("a$b.app") + ").";
        QTest::newRow("another digest") << inside << "digest"
                                        << "The download doesn't match the signed version.";
        QTest::newRow("no download") << inside << "404"
                                     << "Couldn't download or install (HTTP 404).";
        QTest::newRow("no archive") << inside << "archive"
                                    << u"Couldn't download or install (/usr/bin/tar devolvió 2)."_qs;
        QTest::newRow("no address") << inside << "url"
                                    << "Couldn't download or install (URL: ).";
    }

    void failuresSayWhyAndLeadToTheWebsite()
    {
        QFETCH(QString, program);
        QFETCH(QString, trouble);
        QFETCH(QString, message);
        qputenv("VELLUMORA_PRUEBA_ACTUALIZAR", "1");
        start(program);
        if (trouble == "archive")
            archive = "<html>";
        QByteArray sent = manifest("99", trouble == "digest" ? QByteArray(64, '0') : QByteArray());
        serve(trouble == "url" ? sent.replace(server.url("/archive").toEncoded(), "http://[oops") : sent);
        if (trouble == "404")
            server.answers.remove("/archive");
        updater->check(Updater::Asked::byItself);
        QCOMPARE(alertTexts(), (QStringList{"Couldn't update",
                                            message + "\n\nYou can download it yourself from the website."}));
        QCOMPARE(lastLine(), "actualizacion: fallo (" + message.toUtf8() + ")");
        QVERIFY(!progressShows());
        QCOMPARE(QDir(home.path("tmp")).entryList(QDir::Files), QStringList());
        answer(trouble == "digest" ? 1 : 0);
        QTRY_COMPARE(desktop.opened.size(), trouble == "digest" ? 0 : 1);
        QCOMPARE(ends, 0);
        QVERIFY(installer->script.isEmpty());
    }

    void itMayGoAtAnyMoment()
    {
        serve(manifest("99"));
        updater->check(Updater::Asked::byUser);
        start("/usr/bin/vellumora");
        updater->check(Updater::Asked::byUser);
        QTRY_COMPARE(alerts().size(), 1);
        updater.reset();
        answer(0);
        QCOMPARE(ends, 0);
    }
};

QTEST_MAIN(UpdaterTest)
#include "UpdaterTest.moc"
