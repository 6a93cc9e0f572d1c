#include "app/Program.h"

#include "app/AppDelegate.h"
#include "app/CommandLine.h"
#include "app/StandardStreams.h"
#include "base/Log.h"
#include "l10n/L10n.h"
#include "modes/DemoMode.h"
#include "modes/HaloTestMode.h"
#include "modes/ScriptCapture.h"
#include "modes/SelfTestMode.h"
#include "platform/Clipboard.h"
#include "platform/Desktop.h"
#include "platform/Ending.h"
#include "platform/Platform.h"
#include "platform/ProgramId.h"
#include "platform/SingleInstance.h"
#include "platform/StateFolder.h"
#include "updater/SystemProxies.h"
#include "updater/Version.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>

using namespace std::chrono_literals;

namespace {

constexpr int badUse = 2;
constexpr auto clipboardKept = 2s; // at most

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

void say(FILE *stream, const QString &text) { std::fputs((text + u'\n').toLocal8Bit().constData(), stream); }

// The status to end with at once, if there is nothing to run.
std::optional<int> answeredAtOnce(const CommandLine &line)
{
    if (line.unknown) {
        say(stderr, QStringLiteral("vellumora: unknown argument \"%1\"; --help says what there is")
                        .arg(*line.unknown));
        return badUse;
    }
    if (line.misuse) {
        say(stderr, QStringLiteral("vellumora: ") + *line.misuse);
        return badUse;
    }
    if (line.help)
        say(stdout, CommandLine::helpText().trimmed());
    else if (line.version)
        say(stdout, QStringLiteral("Vellumora ") + Version::current());
    else
        return std::nullopt;
    return EXIT_SUCCESS;
}

bool displayReady(const CommandLine &line)
{
    if (line.demo || line.haloTest) {
        // The same pictures on every machine, and nothing comes up on its screens.
        prepareOffscreen(DemoMode::scaleOfPass());
        return true;
    }
    const auto problem = prepareDisplay();
    if (problem)
        say(stderr, QStringLiteral("vellumora: ") + *problem);
    return !problem;
}

// Qt's own dialogs in the language of the rest.
void translateToolkit(QTranslator &translator)
{
    const QString language = L10n::lang() == Lang::pt ? QStringLiteral("pt_BR") : L10n::code(L10n::lang());
    if (translator.load(QStringLiteral("qtbase_") + language,
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&translator);
}

Wish wishOf(const CommandLine &line)
{
    if (line.quit)
        return Wish::quit;
    return line.capture ? Wish::capture : Wish::settings;
}

// The status to end with, if this display has its Vellumora already or is to have
// none.
std::optional<int> answeredByAnother(SingleInstance &instance, const CommandLine &line)
{
    if (line.anyMode)
        return std::nullopt;
    switch (instance.claim(wishOf(line))) {
    case SingleInstance::Standing::first: return line.quit ? std::optional(EXIT_SUCCESS) : std::nullopt;
    case SingleInstance::Standing::handedOver: return EXIT_SUCCESS;
    case SingleInstance::Standing::unanswered:
        say(stderr, QStringLiteral("vellumora: it is running already, but does not answer"));
        return EXIT_FAILURE;
    }
    return std::nullopt;
}

void serveOthers(SingleInstance &instance, AppDelegate &delegate)
{
    instance.onWish = [&delegate](Wish wish) {
        switch (wish) {
        case Wish::capture: return delegate.capture();
        case Wish::settings: return delegate.openSettings();
        case Wish::quit: return delegate.terminate();
        }
    };
    instance.serve();
}

void prepareToolkit()
{
    // A stroke is as true to the hand as the points that arrive; Qt switches this on
    // as it starts.
    QApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/vellumora/vellumora.svg")));
}

int stay(Platform &platform, const CommandLine &line, SingleInstance &instance)
{
    AppDelegate delegate(platform, line);
    serveOthers(instance, delegate);
    Ending::onRequest([&delegate] { delegate.terminate(); });
    QTimer::singleShot(0, &delegate, &AppDelegate::applicationDidFinishLaunching);
    const int status = QApplication::exec();
    platform.desktop->clipboard().handOver(clipboardKept);
    Ending::begin();
    return status;
}

int run(int argc, char **argv)
{
    const CommandLine line = CommandLine::parse(argumentsOf(argc, argv));
    if (const auto status = answeredAtOnce(line))
        return *status;
    auto claimed = makeSingleInstance();
    if (const auto status = answeredByAnother(*claimed, line))
        return *status;
    Log::keepIn(stateFolder());
    if (!displayReady(line))
        return EXIT_FAILURE;
    QApplication::setApplicationName(QStringLiteral("Vellumora"));
    QApplication::setDesktopFileName(programId());
    QApplication application(argc, argv);
    Ending::awaitPool();
    prepareToolkit();
    const auto instance = std::move(claimed); // serves no longer than the application is there
    Platform platform = makePlatform(line.script ? Services::pictures : Services::all);
    L10n::setPreferredLanguages(platform.desktop->preferredLanguages());
    QTranslator toolkitTexts;
    translateToolkit(toolkitTexts);
    if (line.demo)
        return DemoMode::run(line.demo->picture, line.demo->folder);
    if (line.haloTest)
        return HaloTestMode::run(line.haloTest->picture, line.haloTest->folder);
    if (line.selfTest)
        return SelfTestMode::run(platform, *line.selfTest);
    if (line.script)
        return ScriptCapture::run(platform, *line.script);
    return stay(platform, line, *instance);
}

} // namespace

int runProgram(int argc, char **argv)
{
    StandardStreams::keepTheirPlaces();
    const int status = run(argc, argv);
    if (!SystemProxies::isBusy())
        return status;
    // A look-up that hangs would keep the process for as long as it does.
    std::fflush(nullptr);
    std::_Exit(status);
}
