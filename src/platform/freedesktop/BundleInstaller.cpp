#include "platform/freedesktop/BundleInstaller.h"

#include "platform/freedesktop/BundleTree.h"

#include <QCoreApplication>
#include <QCoroFuture>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QtConcurrentRun>

namespace {

struct Tool {
    QString program;
    QStringList arguments;
};

// Every tool of the system that an update uses.
namespace Tools {

// An administrator's tar would restore foreign owners and rights.
Tool attach(const QString &image, const QString &mount)
{
    return {u"/usr/bin/tar"_qs,
            {u"-xf"_qs, image, u"-C"_qs, mount, u"--no-same-owner"_qs, u"--no-same-permissions"_qs}};
}
Tool detach(const QString &mount) { return {u"/usr/bin/rm"_qs, {u"-rf"_qs, mount}}; }
Tool ditto(const QString &from, const QString &to) { return {u"/usr/bin/cp"_qs, {u"-a"_qs, from, to}}; }
Tool shell(const QString &script) { return {u"/bin/sh"_qs, {u"-c"_qs, script}}; }

SwapCommands swap(const QString &bundle)
{
    return {.copy = u"/usr/bin/cp -a"_qs,
            .exchange = u"\"%1/bin/vellumora-exchange\""_qs.arg(bundle),
            .open = u"/usr/bin/setsid --fork"_qs};
}

} // namespace Tools

QString failed(const Tool &tool, const QString &how) { return tool.program + u" devolvió "_qs + how; }

// Tar would also do what the user has asked of it elsewhere, such as keep the
// absolute paths of an archive.
QProcessEnvironment environment()
{
    auto own = QProcessEnvironment::systemEnvironment();
    own.remove(u"TAR_OPTIONS"_qs);
    return own;
}

// Absent when the tool exits with 0.
std::optional<QString> run(const Tool &tool)
{
    QProcess process;
    process.setProgram(tool.program);
    process.setArguments(tool.arguments);
    process.setProcessEnvironment(environment());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start();
    if (!process.waitForFinished(-1))
        return tool.program + u": "_qs + process.errorString();
    if (process.exitStatus() == QProcess::CrashExit)
        return failed(tool, process.errorString());
    if (process.exitCode() != 0)
        return failed(tool, QString::number(process.exitCode()));
    return std::nullopt;
}

std::optional<QString> copyOut(const QString &image, const QString &mount, const QString &staged)
{
    const QString bundle = mount + u"/Vellumora.app"_qs;
    if (auto problem = run(Tools::attach(image, mount)))
        return problem;
    if (const auto stray = BundleTree::strayEntry(bundle))
        return u"Vellumora.app: "_qs + *stray;
    return run(Tools::ditto(bundle, staged));
}

std::optional<QString> stageNow(const QString &image, const QString &mount, const QString &staged)
{
    QDir().mkpath(mount);
    auto problem = copyOut(image, mount, staged);
    // What cannot be removed goes with the folder around it.
    (void)run(Tools::detach(mount));
    return problem;
}

} // namespace

BundleInstaller::BundleInstaller(QString program)
    : m_program(program.isEmpty() ? QCoreApplication::applicationFilePath() : std::move(program))
{}

std::optional<QString> BundleInstaller::bundle() const
{
    const QFileInfo folder(QFileInfo(m_program).path());
    const QString bundle = folder.path();
    if (folder.fileName() != u"bin" || !bundle.endsWith(u".app"))
        return std::nullopt;
    return bundle;
}

bool BundleInstaller::canReplace(const QString &bundle) const
{
    return QFileInfo(QFileInfo(bundle).path()).isWritable();
}

SwapCommands BundleInstaller::commands(const QString &bundle) const { return Tools::swap(bundle); }

QCoro::Task<std::optional<QString>> BundleInstaller::stage(QString image, QString mount, QString staged)
{
    co_return co_await QtConcurrent::run(stageNow, image, mount, staged);
}

std::optional<QString> BundleInstaller::start(const QString &script)
{
    const Tool shell = Tools::shell(script);
    QProcess process;
    process.setProgram(shell.program);
    process.setArguments(shell.arguments);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    // Not in a folder that the script removes.
    process.setWorkingDirectory(QDir::rootPath());
    if (!process.startDetached())
        return shell.program + u": "_qs + process.errorString();
    return std::nullopt;
}
