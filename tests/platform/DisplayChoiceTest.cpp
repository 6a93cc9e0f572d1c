#include "platform/DisplayChoice.h"

#include <QLocalServer>
#include <QTemporaryDir>
#include <QTest>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

using Kind = DisplayChoice::Kind;
using Environment = QMap<QByteArray, QByteArray>;

class DisplayChoiceTest : public QObject {
    Q_OBJECT

    QTemporaryDir runtime;
    QLocalServer compositor;

    [[nodiscard]] QByteArray path(const char *name) const { return runtime.filePath(name).toUtf8(); }

    // A socket that nobody listens at any more.
    void leaveSocket(const char *name) const
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path(name).constData(), sizeof address.sun_path - 1);
        const int left = socket(AF_UNIX, SOCK_STREAM, 0);
        QCOMPARE(bind(left, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
        close(left);
    }

    static void choose(const Environment &environment)
    {
        for (const char *name :
             {"WAYLAND_DISPLAY", "DISPLAY", "XDG_SESSION_TYPE", "QT_QPA_PLATFORM", "VELLUMORA_PLATAFORMA"})
            environment.contains(name) ? qputenv(name, environment[name]) : qunsetenv(name);
    }

    static Environment with(Environment all, const char *name, const char *value)
    {
        all.insert(name, value);
        return all;
    }

    const Environment both{{"WAYLAND_DISPLAY", "wayland-0"}, {"DISPLAY", ":7"}};

private slots:
    void initTestCase()
    {
        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
        QVERIFY(compositor.listen(runtime.filePath("wayland-0")));
        leaveSocket("wayland-dead");
    }

    // A compositor is preferred, but the user is obeyed.
    void theDisplayIsChosen_data()
    {
        QTest::addColumn<Environment>("environment");
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("name");
        const auto row = [](const char *title, const Environment &environment, Kind kind, const char *name) {
            QTest::newRow(title) << environment << kind << name;
        };
        row("nothing", {}, Kind::x11, "");
        row("an X server", {{"DISPLAY", ":7"}}, Kind::x11, ":7");
        row("a compositor", {{"WAYLAND_DISPLAY", "wayland-0"}}, Kind::wayland, "wayland-0");
        row("a compositor with an X server in it", both, Kind::wayland, "wayland-0");
        row("a session that names no socket", {{"XDG_SESSION_TYPE", "wayland"}, {"DISPLAY", ":7"}},
            Kind::wayland, "wayland-0");
        row("an X session beside a compositor", {{"XDG_SESSION_TYPE", "x11"}, {"DISPLAY", ":7"}}, Kind::x11,
            ":7");
        row("a dead compositor alone", {{"WAYLAND_DISPLAY", "wayland-dead"}}, Kind::wayland, "wayland-dead");
        row("a dead compositor's name in an X session",
            {{"WAYLAND_DISPLAY", "wayland-dead"}, {"DISPLAY", ":7"}}, Kind::x11, ":7");
        row("Qt told X", with(both, "QT_QPA_PLATFORM", "xcb"), Kind::x11, ":7");
        row("Qt told Wayland",
            {{"QT_QPA_PLATFORM", "wayland-egl"}, {"WAYLAND_DISPLAY", "wayland-dead"}, {"DISPLAY", ":7"}},
            Kind::wayland, "wayland-dead");
        row("Qt told Wayland, without a name", {{"QT_QPA_PLATFORM", "wayland"}, {"DISPLAY", ":7"}},
            Kind::wayland, "wayland-0");
        row("Qt told the first that is there",
            {{"QT_QPA_PLATFORM", "wayland;xcb"}, {"WAYLAND_DISPLAY", "wayland-dead"}, {"DISPLAY", ":7"}},
            Kind::x11, ":7");
        row("Qt told two, of which none is there", {{"QT_QPA_PLATFORM", "wayland;xcb"}}, Kind::x11, "");
        row("Qt told nobody's display", with(both, "QT_QPA_PLATFORM", "offscreen:configfile=a"),
            Kind::imaginary, ":7");
        row("Qt told something else", with(both, "QT_QPA_PLATFORM", "vnc"), Kind::wayland, "wayland-0");
        row("we told X", with(with(both, "QT_QPA_PLATFORM", "wayland"), "VELLUMORA_PLATAFORMA", "x11"),
            Kind::x11, ":7");
        row("we told Wayland", with(with(both, "QT_QPA_PLATFORM", "xcb"), "VELLUMORA_PLATAFORMA", "wayland"),
            Kind::wayland, "wayland-0");
        row("we told nothing that matters here", with(both, "VELLUMORA_PLATAFORMA", "none"), Kind::wayland,
            "wayland-0");
    }

    void theDisplayIsChosen()
    {
        QFETCH(Environment, environment);
        choose(environment);
        const auto display = DisplayChoice::make();
        QTEST(display.kind, "kind");
        QTEST(QString::fromStdString(display.name), "name");
    }

    void aSocketHasOneKeyHoweverItIsNamed()
    {
        for (const QByteArray &name : {QByteArray("wayland-0"), path("wayland-0")}) {
            choose({{"WAYLAND_DISPLAY", name}});
            QCOMPARE(DisplayChoice::make().key(), std::string("wayland-0"));
        }
        choose({{"WAYLAND_DISPLAY", "/elsewhere/socket"}});
        QCOMPARE(DisplayChoice::make().key(), std::string("_elsewhere_socket"));
    }
};

QTEST_GUILESS_MAIN(DisplayChoiceTest)
#include "DisplayChoiceTest.moc"
