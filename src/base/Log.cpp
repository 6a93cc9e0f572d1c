#include "base/Log.h"

#include "base/AppendLine.h"

#include <QDir>

namespace Log {

void write(const QString &message) { appendLine(path(), line(QDateTime::currentDateTimeUtc(), message)); }

QString path() { return QDir::homePath() + QStringLiteral("/Library/Logs/Vellumora.log"); }

QString line(const QDateTime &at, const QString &message)
{
    return at.toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss '+0000 '")) + message;
}

} // namespace Log
