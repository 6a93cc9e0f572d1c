#include "modes/DemoPasses.h"

#include "modes/Console.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QThread>

#include <algorithm>
#include <array>

#include <unistd.h>

namespace {

constexpr auto passVariable = "VELLUMORA_DEMO_PASE";
constexpr std::array languages{Lang::es, Lang::en, Lang::it, Lang::fr, Lang::de, Lang::pt};
constexpr std::array scales{1, 2};

std::optional<Lang> langOf(const QString &code)
{
    const auto *const found = std::ranges::find(languages, code, [](Lang lang) { return L10n::code(lang); });
    return found == languages.end() ? std::nullopt : std::optional(*found);
}

bool somebodyWatches() { return isatty(STDERR_FILENO) != 0; }

} // namespace

std::optional<DemoPass> DemoPass::ofThisProcess()
{
    const QStringList words = qEnvironmentVariable(passVariable).split(u' ');
    const auto lang = langOf(words.value(0));
    const int scale = words.value(1).toInt();
    if (!lang || std::ranges::find(scales, scale) == scales.end())
        return std::nullopt;
    return DemoPass{*lang, scale, words.value(2) == u"whole"};
}

QString DemoPass::toText() const
{
    return QStringLiteral("%1 %2 %3")
        .arg(L10n::code(lang))
        .arg(scale)
        .arg(whole ? QStringLiteral("whole") : QStringLiteral("texts"));
}

DemoPasses::DemoPasses(QStringList arguments) : m_arguments(std::move(arguments))
{
    for (const int scale : scales)
        m_waiting.push_back({L10n::lang(), scale, true}); // the longest first
    for (const Lang lang : languages)
        for (const int scale : scales)
            if (lang != L10n::lang())
                m_waiting.push_back({lang, scale, false});
}

int DemoPasses::run()
{
    for (int i = 0; i < std::max(QThread::idealThreadCount(), 1); ++i)
        startNext();
    while (m_running > 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (somebodyWatches())
        std::fputs("\r\x1b[K", stderr);
    return m_worst;
}

void DemoPasses::startNext()
{
    if (m_waiting.empty())
        return;
    const DemoPass pass = m_waiting.front();
    m_waiting.pop_front();
    auto &process = *m_processes.emplace_back(std::make_unique<QProcess>());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(passVariable), pass.toText());
    environment.insert(QStringLiteral("VELLUMORA_IDIOMA"), L10n::code(pass.lang));
    environment.insert(QStringLiteral("HOME"), m_home.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_home.path() + u'/' + pass.toText());
    environment.insert(QStringLiteral("XDG_STATE_HOME"), m_home.path() + u'/' + pass.toText());
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process, [&] { handOn(process); });
    QObject::connect(&process, &QProcess::finished, &process, [&](int status, QProcess::ExitStatus how) {
        ended(process, how == QProcess::NormalExit ? status : EXIT_FAILURE);
    });
    QObject::connect(&process, &QProcess::errorOccurred, &process, [&](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            Console::complain(process.errorString());
            ended(process, EXIT_FAILURE);
        }
    });
    ++m_running;
    process.start(QCoreApplication::applicationFilePath(), m_arguments);
}

void DemoPasses::handOn(QProcess &process)
{
    while (process.canReadLine()) {
        const QString line = QString::fromLocal8Bit(process.readLine()).trimmed();
        Console::say(line);
        showProgress(line);
    }
}

void DemoPasses::showProgress(const QString &path)
{
    if (!path.endsWith(u".png"))
        return;
    ++m_pictures;
    if (somebodyWatches())
        std::fprintf(stderr, "\r\x1b[K%d written, %s", m_pictures,
                     QFileInfo(path).completeBaseName().toLocal8Bit().constData());
}

void DemoPasses::ended(QProcess &process, int status)
{
    handOn(process);
    m_worst = std::max(m_worst, status == EXIT_SUCCESS ? EXIT_SUCCESS : EXIT_FAILURE);
    --m_running;
    startNext();
}
