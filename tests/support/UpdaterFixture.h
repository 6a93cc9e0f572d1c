#pragma once

#include "base/Defaults.h"
#include "updater/ProgressWindow.h"
#include "updater/Updater.h"

#include "fakes/FakeDesktop.h"
#include "fakes/RecordingInstaller.h"
#include "support/KeyPair.h"
#include "support/TempHome.h"
#include "support/WebServer.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

// Sets up a bundle in a home folder, a website that offers another one, and the
// updater between them. Only the swap itself is left out.
class UpdaterFixture : public QObject {
protected:
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
        using namespace std::chrono_literals;
        updater.reset();
        installer = std::make_unique<RecordingInstaller>(program);
        updater = std::make_unique<Updater>(*installer, desktop, key.publicPem());
        updater->busy = [this] { return capturing; };
        updater->terminate = [this] { ++ends; };
        updater->pauses = {.afterCapture = 20ms, .beforeSecondTry = 20ms};
    }

    // Returns a manifest. The words given are added to those of its item, or
    // replace them.
    [[nodiscard]] QByteArray manifest(const QByteArray &version, const QJsonObject &words = {},
                                      const QString &news = "<b>New</b>") const
    {
        const QByteArray sha256
            = QCryptographicHash::hash(archive, QCryptographicHash::Sha256).toHex().toUpper();
        QJsonObject item{{"url", server.url("/archive").toString()}, {"sha256", QString(sha256)}};
        for (auto word = words.begin(); word != words.end(); ++word)
            item[word.key()] = word.value();
        const QJsonObject notes{{"en", news}};
        return QJsonDocument(QJsonObject{{"version", QString(version)}, {"novedades", notes}, {"mac", item}})
            .toJson();
    }

    void serve(const QByteArray &bytes)
    {
        server.answers["/actualizacion.json"] = WebServer::ok(bytes);
        server.answers["/actualizacion.sig"] = WebServer::ok(key.sign(bytes) + "\n");
        server.answers["/archive"] = WebServer::ok(archive);
    }

    // Packs a bundle whose program reports this version.
    void pack(const QByteArray &version)
    {
        const QString packed = home.path("packed.tar.gz");
        QDir().mkpath(home.path("new/Vellumora.app/bin"));
        QFile program(home.path("new/Vellumora.app/bin/vellumora"));
        QVERIFY(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\necho Vellumora " + version);
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        program.close();
        QCOMPARE(QProcess::execute("tar", {"-czf", packed, "-C", home.path("new"), "Vellumora.app"}), 0);
        archive = home.read("packed.tar.gz");
    }

    [[nodiscard]] QByteArray lastLine() const { return home.log().trimmed().split('\n').last().mid(26); }

    void answer(int button)
    {
        QTRY_COMPARE(alerts().size(), 1);
        const QPointer<QMessageBox> box = alerts().first();
        QTest::mouseClick(box->findChildren<QPushButton *>().at(button), Qt::LeftButton);
        QTRY_VERIFY(!box);
    }

    // Waits for the alert and returns its two texts.
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

    [[nodiscard]] static QList<QMessageBox *> alerts()
    {
        QList<QMessageBox *> shown;
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *box = qobject_cast<QMessageBox *>(widget); box && box->isVisible())
                shown.append(box);
        return shown;
    }

    [[nodiscard]] static bool progressShows()
    {
        return std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget *window) {
            return window->isVisible() && dynamic_cast<ProgressWindow *>(window);
        });
    }

    void prepare()
    {
        qunsetenv("VELLUMORA_PRUEBA_ACTUALIZAR");
        QFile::remove(home.path("Library/Logs/Vellumora.log"));
        QDir().mkpath(home.path("tmp"));
        qputenv("TMPDIR", home.path("tmp").toLocal8Bit());
        pack("99.1");
        QDir().mkpath(home.path("Vellumora.app/bin"));
        QFile::copy(VELLUMORA_EXCHANGE, home.path("Vellumora.app/bin/vellumora-exchange"));
        for (const auto word : {Defaults::updateMarkKey, Defaults::putOffKey})
            Defaults::remove(word);
        server.answers.clear();
        server.requests.clear();
        desktop.opened.clear();
        ends = 0;
        capturing = false;
        Defaults::setValue(Defaults::updateAddressKey, server.url("/actualizacion.json").toString());
        start(home.path("Vellumora.app/bin/vellumora"));
    }

    void clear()
    {
        for (QMessageBox *box : alerts())
            box->close();
        updater.reset();
        QDir(home.path("tmp")).removeRecursively();
        qunsetenv("TMPDIR");
    }
};
