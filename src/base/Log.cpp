#include "base/Log.h"

#include "base/AppendLine.h"

#include <QDir>

namespace Log {

void write(const QString &message) { appendLine(path(), line(QDateTime::currentDateTimeUtc(), message)); }

QString path() { return QDir::homePath() + QStringLiteral("/Library/Logs/Vellumora.log"); }

QString date(const QDateTime &at)
{
    return at.toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss '+0000'"));
}

QString line(const QDateTime &at, const QString &message) { return date(at) + u' ' + message; }

} // namespace Log
