#include "platform/freedesktop/SystemTool.h"

#include <QDeadlineTimer>
#include <QProcess>
#include <QProcessEnvironment>

namespace {

// Tar would also do what the user has asked of it elsewhere, such as keep the
// absolute paths of an archive; and its words must be those that we read.
QProcessEnvironment environment()
{
    auto own = QProcessEnvironment::systemEnvironment();
    own.remove(QStringLiteral("TAR_OPTIONS"));
    own.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    return own;
}

bool hear(QProcess &process, const SystemTool::Listener &listener)
{
    while (process.canReadLine())
        if (!listener(process.readLine()))
            return false;
    return true;
}

// False when it had to be ended.
bool waitForEnd(QProcess &process, const SystemTool::Listener &listener, QDeadlineTimer end)
{
    while (listener && process.waitForReadyRead(int(end.remainingTime())))
        if (!hear(process, listener))
            return false;
    if (listener && !hear(process, listener))
        return false;
    return process.state() == QProcess::NotRunning || process.waitForFinished(int(end.remainingTime()));
}

} // namespace

std::optional<QString> SystemTool::run(const Listener &listener, int milliseconds) const
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setProcessEnvironment(environment());
    process.setStandardInputFile(QProcess::nullDevice());
    if (!listener)
        process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QIODevice::ReadOnly);
    if (!process.waitForStarted())
        return program + QStringLiteral(": ") + process.errorString();
    const bool ended = waitForEnd(process, listener, QDeadlineTimer(milliseconds));
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    const QString failed = program + QStringLiteral(" devolvió ");
    if (!ended || process.exitStatus() == QProcess::CrashExit)
        return failed + process.errorString();
    if (process.exitCode() != 0)
        return failed + QString::number(process.exitCode());
    return std::nullopt;
}
