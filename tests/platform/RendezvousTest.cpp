#include "platform/freedesktop/Rendezvous.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace std::chrono_literals;
using Rendezvous::Answer;
using Rendezvous::Lock;

class RendezvousTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> root;

    [[nodiscard]] QByteArray path(const QString &name) const { return root->filePath(name).toUtf8(); }

    QByteArray folder(const QString &name, mode_t mode) const
    {
        QDir().mkpath(root->filePath(name));
        chmod(path(name).constData(), mode);
        return path(name);
    }

    [[nodiscard]] static QByteArray lockOf(const std::optional<Rendezvous::Place> &place)
    {
        return QByteArray::fromStdString(place ? place->lock : "nowhere");
    }

private slots:
    void init()
    {
        qunsetenv("TMPDIR"); // which is in the folder of the test before
        root = std::make_unique<QTemporaryDir>();
        qputenv("XDG_RUNTIME_DIR", folder("run", 0700));
        qputenv("TMPDIR", folder("tmp", 0777));
        qputenv("XDG_CACHE_HOME", folder("cache", 0755));
        qputenv("DISPLAY", ":7");
        for (const char *other : {"WAYLAND_DISPLAY", "XDG_SESSION_TYPE", "VELLUMORA_PLATAFORMA"})
            qunsetenv(other);
    }

    void everyDisplayHasItsOwnPlace()
    {
        QCOMPARE(lockOf(Rendezvous::makePlace()), path("run/vellumora-:7.lock"));
        for (const char *same : {":7.0", ":7.1", "unix:7"}) {
            qputenv("DISPLAY", same);
            QCOMPARE(lockOf(Rendezvous::makePlace()), path("run/vellumora-:7.lock"));
        }
        qputenv("DISPLAY", "far/10.1.2.3:7.0");
        QCOMPARE(lockOf(Rendezvous::makePlace()), path("run/vellumora-far_10.1.2.3:7.lock"));
    }

    void aStartThatIsToldNothingLooksWhereSessionsAre()
    {
        qunsetenv("XDG_RUNTIME_DIR");
        const QByteArray usual = "/run/user/" + QByteArray::number(geteuid());
        const bool here = access(usual.constData(), R_OK | W_OK) == 0;
        const QByteArray elsewhere = path("tmp/vellumora-" + QString::number(geteuid()));
        QCOMPARE(lockOf(Rendezvous::makePlace()), (here ? usual : elsewhere) + "/vellumora-:7.lock");
    }

    void aFolderOfOthersIsNotUsed_data()
    {
        QTest::addColumn<std::function<void(const char *)>>("make");
        const auto row = [](const char *name, const std::function<void(const char *)> &make) {
            QTest::newRow(name) << make;
        };
        row("open to all", [](const char *name) { mkdir(name, 0700), chmod(name, 0777); });
        row("a file", [](const char *name) { QFile(name).open(QIODevice::WriteOnly); });
        row("a link", [this](const char *name) { (void)symlink(path("cache").constData(), name); });
        if (geteuid() == 0)
            row("another owner",
                [](const char *name) { mkdir(name, 0700), (void)chown(name, 65534, 65534); });
    }

    void aFolderOfOthersIsNotUsed()
    {
        QFETCH(std::function<void(const char *)>, make);
        const QString own = "tmp/vellumora-" + QString::number(geteuid());
        rmdir(path("run").constData());
        make(path("run").constData());
        QCOMPARE(lockOf(Rendezvous::makePlace()), path(own + "/vellumora-:7.lock"));
        rmdir(path(own).constData());
        make(path(own).constData());
        QCOMPARE(lockOf(Rendezvous::makePlace()), path("cache/vellumora/vellumora-:7.lock"));
        QCOMPARE(Rendezvous::places().size(), 1U);
    }

    void whatIsAskedForArrivesWhole()
    {
        using Rendezvous::Request;
        const std::string overlong(Rendezvous::longestMessage, 'x');
        for (const Wish wish : {Wish::settings, Wish::capture, Wish::quit})
            for (const std::string token : {"", "gnome-shell/menu/12-3_TIME45"})
                QCOMPARE(Rendezvous::requestIn(Rendezvous::message({wish, token})), (Request{wish, token}));
        for (const std::string &token : {std::string("two words"), std::string("two\nlines"), overlong})
            QCOMPARE(Rendezvous::message({Wish::settings, token}), "ajustes\n");
        for (const std::string_view text :
             {"", "\n", "ajustes", "x\n", " ajustes\n", "ajustes a b\n", "ajustes a\nb\n"})
            QVERIFY(!Rendezvous::requestIn(text));
    }

    void oneHasTheLock()
    {
        const auto place = *Rendezvous::makePlace();
        QCOMPARE(Rendezvous::take(place), Lock::taken);
        QCOMPARE(Rendezvous::take(place), Lock::held);
        QCOMPARE(Rendezvous::take({"/nowhere/lock", "/nowhere/socket"}), Lock::unusable);
    }
};

QTEST_GUILESS_MAIN(RendezvousTest)
#include "RendezvousTest.moc"
