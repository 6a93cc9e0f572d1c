#include "base/Log.h"

#include "base/AppendLine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QString systemFolder; // the process has one, and any room may write

// The folder itself is closed to others; those above it are as the system makes them.
void make(const QString &folder)
{
    const QFileInfo wanted(folder);
    QDir().mkpath(wanted.path());
    QDir().mkdir(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

namespace Log {

void keepIn(const QString &folder) { systemFolder = folder; }

QString folder()
{
    const QString own = QDir::homePath() + QStringLiteral("/Library/Logs");
    return QFileInfo(own).isDir() ? own : systemFolder;
}

void append(const QString &fileName, const QString &line)
{
    const QString folder = Log::folder();
    if (folder.isEmpty())
        return;
    if (!QFileInfo::exists(folder))
        make(folder);
    appendLine(folder + u'/' + fileName, line);
}

void write(const QString &message)
{
    append(QStringLiteral("Vellumora.log"), line(QDateTime::currentDateTimeUtc(), message));
}

QString path() { return folder() + QStringLiteral("/Vellumora.log"); }

QString date(const QDateTime &at)
{
    return at.toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss '+0000'"));
}

QString line(const QDateTime &at, const QString &message) { return date(at) + u' ' + message; }

} // namespace Log
