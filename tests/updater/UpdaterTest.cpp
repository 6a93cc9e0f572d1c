#include "support/UpdaterFixture.h"

#include "l10n/L10n.h"

#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>

#include <utility>

using namespace std::chrono_literals;

class UpdaterTest : public UpdaterFixture {
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { clear(); }

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

    // Without even asking the website by itself.
    void whereAPackageManagerUpdatesItItOnlySaysSo()
    {
        start("/usr/bin/vellumora");
        serve(manifest("0"));
        updater->check(Updater::Asked::byItself);
        updater->check(Updater::Asked::byUser); // would be dropped if that one ran
        QCOMPARE(alertTexts().value(0), "You're up to date");
        answer(0);
        QCOMPARE(server.requests.size(), 2);
        serve(manifest("99", {}, "New"));
        updater->check(Updater::Asked::byUser);
        QCOMPARE(alertTexts(), (QStringList{"A new version of Vellumora is available (99)",
                                            "New\n\nYou have " + Updater::current()
                                                + ". New ones come with the system's updates."}));
        answer(0);
        QCOMPARE(desktop.opened, QList{L10n::web()});
        QVERIFY(!progressShows());
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
        QCOMPARE(server.requests.size(), 4);
    }

    void aReleaseInProgressGetsASecondChance()
    {
        serve(manifest("99"));
        const QByteArray good = std::exchange(server.answers["/actualizacion.sig"], WebServer::ok("old"));
        updater->pauses.beforeSecondTry = 500ms;
        updater->check(Updater::Asked::byUser);
        QTRY_COMPARE(server.requests.size(), 2);
        server.answers["/actualizacion.sig"] = good;
        QCOMPARE(alertTexts().value(0), "A new version of Vellumora is available (99)");
        QCOMPARE(server.requests.size(), 4);
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

    void longNotesFitOnEveryScreen()
    {
        serve(manifest("99", {}, QString("A line of the notes\n").repeated(300)));
        updater->check(Updater::Asked::byUser);
        QVERIFY(alertTexts().value(1).endsWith("opens again."));
        const QSize size = alerts().first()->frameSize();
        for (const QScreen *screen : QGuiApplication::screens())
            QVERIFY(size.height() < screen->availableGeometry().height()
                    && size.width() < screen->availableGeometry().width());
        const auto *area = alerts().first()->findChild<QScrollArea *>();
        QVERIFY(area && area->verticalScrollBar()->maximum() > 0);
        QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
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

    void anOfferLeavesTheUserAloneAfterACapture()
    {
        serve(manifest("99.1"));
        updater->pauses.afterCapture = 1h;
        updater->captureEnded();
        updater->check(Updater::Asked::byItself);
        QTRY_VERIFY(home.log().contains("web 99.1"));
        QCoreApplication::processEvents();
        QVERIFY(alerts().isEmpty());
        updater->check(Updater::Asked::byUser); // he does not want to be left alone
        QTRY_COMPARE(alerts().size(), 1);
    }

    // It was hidden for the capture and has the focus again.
    void anOfferThatShowsLeavesTheReturnKeyAloneAfterACapture()
    {
        serve(manifest("99.1"));
        updater->check(Updater::Asked::byUser);
        QTRY_COMPARE(alerts().size(), 1);
        QMessageBox *box = alerts().first();
        auto *update = box->findChildren<QPushButton *>().first();
        updater->pauses.afterCapture = 200ms;
        updater->captureEnded();
        for (QWidget *focused : {static_cast<QWidget *>(box), static_cast<QWidget *>(update)})
            QTest::keyClick(focused, Qt::Key_Return);
        QVERIFY(box->isVisible());
        QTRY_VERIFY(update->isDefault());
        QTest::keyClick(box, Qt::Key_Return);
        QTRY_VERIFY(alerts().isEmpty());
        QTRY_COMPARE(ends, 1);
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
