#include "modes/SelfTestMode.h"

#include "base/Log.h"
#include "hotkey/Prefs.h"
#include "hotkey/ShortcutForm.h"
#include "modes/Album.h"
#include "modes/Console.h"
#include "modes/Inputs.h"
#include "modes/MainJob.h"
#include "modes/Report.h"
#include "modes/Stage.h"
#include "platform/Ending.h"
#include "platform/Platform.h"
#include "platform/ProgramId.h"
#include "updater/Updater.h"

#include <QDateTime>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QSysInfo>
#include <QTcpSocket>
#include <QUrl>

namespace {

constexpr int httpsPort = 443;
constexpr int httpPort = 80;
constexpr int serverAnswers = 5000; // milliseconds

void describeMachine(Report &report)
{
    report.note(QStringLiteral("Vellumora"), Updater::current());
    report.note(QStringLiteral("date"), QDateTime::currentDateTimeUtc().toString(Qt::ISODate));
    report.note(QStringLiteral("system"),
                QSysInfo::prettyProductName() + QStringLiteral(", Qt ") + QString::fromLatin1(qVersion()));
    report.note(QStringLiteral("session"),
                QStringLiteral("%1 %2 on %3")
                    .arg(qEnvironmentVariable("XDG_CURRENT_DESKTOP", QStringLiteral("no desktop")),
                         qEnvironmentVariable("XDG_SESSION_TYPE"), QGuiApplication::platformName()));
    report.note(QStringLiteral("log"), Log::path());
    for (const QScreen *screen : QGuiApplication::screens())
        report.note(QStringLiteral("screen"),
                    QStringLiteral("%1: %2 × %3 points at (%4, %5), %6 pixels a point")
                        .arg(screen->name())
                        .arg(screen->geometry().width())
                        .arg(screen->geometry().height())
                        .arg(screen->geometry().x())
                        .arg(screen->geometry().y())
                        .arg(screen->devicePixelRatio()));
}

void tryShortcut(Platform &platform, Report &report)
{
    const QString service = QStringLiteral("shortcut");
    const QString keys = ShortcutForm::display(Prefs::shortcut(), *platform.keyboard);
    if (platform.hotKeys->registerShortcut(Prefs::shortcut()))
        report.works(service, keys + QStringLiteral(" is free"));
    else
        report.missing(service, keys
                                    + QStringLiteral(" belongs to another program, or to a Vellumora that is "
                                                     "running: quit that one, or record "
                                                     "another shortcut in the settings"));
    platform.hotKeys->unregisterShortcut();
}

void tryTray(Platform &platform, Report &report)
{
    const QString service = QStringLiteral("tray");
    QMenu menu;
    platform.statusItem->show(menu);
    if (Stage::wait([&] { return platform.statusItem->shows(); }))
        report.works(service, QStringLiteral("the icon has a place"));
    else
        report.missing(
            service,
            QStringLiteral(
                "no panel shows tray icons here; start Vellumora a second time for its settings, or bind "
                "\"vellumora --capturar\" to a key"));
}

void trySound(Platform &platform, Report &report)
{
    const QString service = QStringLiteral("sound");
    if (platform.desktop->hasSound())
        report.works(service, QStringLiteral("there is somewhere to play; a copy makes a short sound"));
    else
        report.missing(service,
                       QStringLiteral("neither a sound server nor a sound card answers; copies are silent"));
}

void tryLoginItem(Platform &platform, Report &report)
{
    const QString service = QStringLiteral("login");
    if (platform.loginItem->enabled())
        report.works(service, QStringLiteral("Vellumora starts at login"));
    else if (platform.loginItem->canBeEnabled())
        report.works(service, QStringLiteral("could start at login; it is switched off"));
    else
        report.missing(service, QStringLiteral("the autostart folder cannot be written, or holds a "
                                               "%1.desktop that starts something else: look at "
                                               "~/.config/autostart")
                                    .arg(programId()));
}

// Only a connection: nothing is asked and nothing is sent.
void tryUpdateServer(Report &report)
{
    const QString service = QStringLiteral("updates");
    const QUrl address = Updater::manifestURL();
    const int port = address.port(address.scheme() == u"http" ? httpPort : httpsPort);
    QTcpSocket socket;
    socket.connectToHost(address.host(), static_cast<quint16>(port));
    if (socket.waitForConnected(serverAnswers))
        report.works(service, address.host() + QStringLiteral(" can be reached"));
    else
        report.missing(service, QStringLiteral("%1 cannot be reached (%2); everything else works without")
                                    .arg(address.host(), socket.errorString()));
}

} // namespace

namespace SelfTestMode {

int run(Platform &platform, const QString &folder)
{
    if (!Inputs::folderReady(folder))
        return EXIT_FAILURE;
    bool interrupted = false;
    Ending::onRequest([&interrupted] {
        interrupted = true;
        QCoreApplication::exit(EXIT_FAILURE);
    });
    Report report;
    Album album(folder);
    describeMachine(report);
    const bool works = MainJob(platform, report, album).run();
    tryShortcut(platform, report);
    tryTray(platform, report);
    if (interrupted) {
        Console::complain(QStringLiteral("interrupted; what is said to be missing may be there"));
        return EXIT_FAILURE;
    }
    trySound(platform, report);
    tryLoginItem(platform, report);
    tryUpdateServer(report);
    report.say(works ? QStringLiteral("Captures work.") : QStringLiteral("Captures do not work here."));
    report.say(QStringLiteral(
        "The pictures beside this report show your screens: look at them before you send them."));
    const bool written = report.write(folder);
    return works && written && album.complete() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace SelfTestMode
