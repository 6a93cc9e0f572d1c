#include "support/UpdaterFixture.h"

#include "updater/UpdateMark.h"

#include <QCloseEvent>
#include <QLabel>
#include <QRegularExpression>

class UpdaterInstallTest : public UpdaterFixture {
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { clear(); }

    void theProgressShowsAndStays()
    {
        ProgressWindow window("99");
        const auto *label = window.findChild<QLabel *>();
        window.show();
        QCOMPARE(label->text(), "Downloading Vellumora 99…");
        window.setProgress(5, -1);
        QCOMPARE(label->text(), "Downloading Vellumora 99…");
        window.setProgress(429, 1000);
        QCOMPARE(label->text(), "Downloading Vellumora 99… 42 %");
        QCloseEvent byTheWindowManager;
        QSpontaneKeyEvent::setSpontaneous(&byTheWindowManager);
        qApp->notify(&window, &byTheWindowManager);
        QVERIFY(!byTheWindowManager.isAccepted());
        QVERIFY(window.close()); // as the program's end does
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
        QVERIFY(UpdateMark::of(home.path("Vellumora.app"))->swapping);
        for (const QString &path : {home.path("Vellumora.app"), work, work + "/Vellumora.app"})
            QVERIFY(installer->script.contains("\"" + path + "\""));
        QVERIFY(installer->script.contains("kill -0 " + QString::number(QCoreApplication::applicationPid())
                                           + " "));
    }

    void aCaptureIsNeitherDisturbedNorLost()
    {
        serve(manifest("99.1"));
        capturing = true;
        updater->check(Updater::Asked::byUser);
        QTRY_VERIFY(home.log().contains("web 99.1"));
        QCoreApplication::processEvents();
        QVERIFY(alerts().isEmpty());
        updater->captureEnded(); // but another one has begun
        QCoreApplication::processEvents();
        QVERIFY(alerts().isEmpty());
        capturing = false;
        updater->captureEnded();
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
        updater->captureEnded();
        QTRY_COMPARE(ends, 1);
    }

    void aSecondUpdateIsRefusedQuietly()
    {
        serve(manifest("99.1"));
        qputenv("VELLUMORA_PRUEBA_ACTUALIZAR", "1");
        BundleInstaller other;
        QVERIFY(other.claim(home.path("Vellumora.app")));
        updater->check(Updater::Asked::byItself);
        QTRY_COMPARE(lastLine(), "actualizacion: otra actualizacion en curso");
        QCoreApplication::processEvents();
        QVERIFY(alerts().isEmpty() && !progressShows());
        QCOMPARE(server.requests.size(), 2);
        other.release();
        updater->check(Updater::Asked::byItself);
        QTRY_COMPARE(ends, 1);
    }

    void theLastUpdateIsSettled_data()
    {
        QTest::addColumn<QString>("version");
        QTest::addColumn<bool>("swapping");
        QTest::addColumn<QString>("bundle");
        QTest::addColumn<bool>("failed");
        QTest::newRow("well") << Updater::current() << true << "Vellumora.app" << false;
        QTest::newRow("died before the swap") << "99.1" << false << "Vellumora.app" << false;
        QTest::newRow("of another bundle") << "99.1" << true << "Other.app" << false;
        QTest::newRow("in vain") << "99.1" << true << "Vellumora.app" << true;
    }

    void theLastUpdateIsSettled()
    {
        QFETCH(QString, version);
        QFETCH(bool, swapping);
        QFETCH(QString, bundle);
        QFETCH(bool, failed);
        const QString work = home.path("tmp/vellumora-act-X");
        const QString mine = home.path("tmp/mine");
        for (const QString &path : {work, mine, home.path("Vellumora.app.anterior")})
            QVERIFY(QDir().mkpath(path));
        UpdateMark{home.path(bundle), version, swapping, {work, mine, "vellumora-x"}}.store();
        updater->settle();
        QTRY_VERIFY(!QFile::exists(home.path("Vellumora.app.anterior")));
        QTRY_COMPARE(QFile::exists(work), bundle == "Other.app");
        QVERIFY(QFile::exists(mine));
        if (failed) {
            QCOMPARE(alertTexts(),
                     (QStringList{"Couldn't update", "Couldn't download or install (Vellumora 99.1).\n\n"
                                                     "You can download it yourself from the website."}));
            answer(1);
        }
        QTRY_COMPARE(UpdateMark::of(home.path(bundle)).has_value(), bundle == "Other.app");
        serve(manifest("99.1"));
        const auto isOffered = [this] {
            updater->check(Updater::Asked::byItself); // dropped while the last one is settled
            return !alerts().isEmpty() || lastLine() == "actualizacion: 99.1 aplazada hasta mañana";
        };
        QTRY_VERIFY(isOffered());
        QCOMPARE(alerts().isEmpty(), failed);
        const auto isOfferedToWhoAsks = [this] {
            updater->check(Updater::Asked::byUser);
            return alerts().size() == 1;
        };
        QTRY_VERIFY(isOfferedToWhoAsks());
    }

    void aSwapInProgressIsNotJudged()
    {
        BundleInstaller script;
        QVERIFY(script.claim(home.path("Vellumora.app")));
        QVERIFY(QDir().mkpath(home.path("Vellumora.app.anterior")));
        UpdateMark{home.path("Vellumora.app"), "99.1", true}.store();
        updater->settle();
        QCoreApplication::processEvents();
        QVERIFY(alerts().isEmpty());
        QVERIFY(QFile::exists(home.path("Vellumora.app.anterior")));
        QVERIFY(UpdateMark::of(home.path("Vellumora.app")));
    }

    void failuresSayWhyAndLeadToTheWebsite_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("trouble");
        QTest::addColumn<QString>("message");
        const QString inside = home.path("Vellumora.app/bin/vellumora");
        const QString noRoom = "Vellumora isn't in a folder it can write to.";
        const auto couldNot
            = [](const QString &why) { return "Couldn't download or install (" + why + ")."; };
        const auto row = [](const char *name, const QString &program, const QString &trouble,
                            const QString &message) { QTest::newRow(name) << program << trouble << message; };
        row("no bundle", "/opt/bin/vellumora", "", noRoom);
        row("a folder that cannot be written", "/proc/self/Vellumora.app/bin/vellumora", "", noRoom);
        row("a path that no script can quote", home.path("a$b.app/bin/vellumora"), "",
            couldNot(home.path("a$b.app") + ": the path contains $"));
        row("a path of two lines", home.path("a\nb.app/bin/vellumora"), "",
            couldNot(home.path(u"a␤b.app: the path contains ␤"_qs)));
        row("a bundle without a helper", home.path("Bare.app/bin/vellumora"), "",
            couldNot(home.path("Bare.app/bin/vellumora-exchange: No such file or directory")));
        row("another digest", inside, "digest", "The download doesn't match the signed version.");
        row("no download", inside, "404", couldNot("HTTP 404"));
        row("no archive", inside, "archive", couldNot(u"/usr/bin/tar devolvió 2"_qs));
        row("another version", inside, "version", couldNot(u"Vellumora 98 ≠ Vellumora 99"_qs));
        row("another processor", inside, "arch", couldNot(u"z80 ≠ "_qs + QSysInfo::buildCpuArchitecture()));
        row("larger than it says", inside, "size", couldNot("> 3 B"));
        row("no address", inside, "url", couldNot("URL: "));
    }

    void failuresSayWhyAndLeadToTheWebsite()
    {
        QFETCH(QString, program);
        QFETCH(QString, trouble);
        QFETCH(QString, message);
        qputenv("VELLUMORA_PRUEBA_ACTUALIZAR", "1");
        for (const char *bundle : {"a$b.app", "a\nb.app", "Bare.app"})
            QDir().mkpath(home.path(bundle));
        start(program);
        pack(trouble == "version" ? "98" : "99");
        if (trouble == "archive")
            archive = "<html>";
        const QHash<QString, QJsonObject> lies{{"digest", {{"sha256", QString(64, '0')}}},
                                               {"arch", {{"arch", "z80"}}},
                                               {"size", {{"size", 3}}},
                                               {"url", {{"url", "http://[oops"}}}};
        serve(manifest("99", lies.value(trouble)));
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
};

QTEST_MAIN(UpdaterInstallTest)
#include "UpdaterInstallTest.moc"
