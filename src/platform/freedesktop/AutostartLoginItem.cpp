#include "platform/freedesktop/AutostartLoginItem.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

constexpr const char *ownersMark = "X-Vellumora-Autostart=true";

// An argument of the Exec key: in quotes, with the characters escaped that mean
// something inside them, then once more as every string of the file is.
QString execArgument(QString path)
{
    for (const QChar special : QStringView(u"\\\"`$"))
        path.replace(special, u'\\' + QString(special));
    path.replace(u"%"_qs, u"%%"_qs);
    path.replace(u'\\', u"\\\\"_qs);
    return u'"' + path + u'"';
}

QByteArray entry()
{
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Vellumora\n"
                          "Exec=%1\n"
                          "Icon=vellumora\n"
                          "Terminal=false\n"
                          "%2\n")
        .arg(execArgument(QCoreApplication::applicationFilePath()), QLatin1StringView(ownersMark))
        .toUtf8();
}

QList<QByteArray> linesOfFile()
{
    QFile file(AutostartLoginItem::path());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<QByteArray> lines;
    for (const QByteArray &line : file.readAll().split('\n'))
        lines.append(line.trimmed());
    return lines;
}

bool isOurs(const QList<QByteArray> &lines) { return lines.contains(ownersMark); }

} // namespace

QString AutostartLoginItem::path()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/autostart/vellumora.desktop");
}

bool AutostartLoginItem::enabled() const
{
    const auto lines = linesOfFile();
    return isOurs(lines) && !lines.contains("Hidden=true");
}

void AutostartLoginItem::enable()
{
    QDir().mkpath(QFileInfo(path()).path());
    QSaveFile file(path());
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(entry());
    file.commit();
}

void AutostartLoginItem::disable()
{
    if (isOurs(linesOfFile()))
        QFile::remove(path());
}
