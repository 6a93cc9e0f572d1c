#include "base/AppendLine.h"

#include <QFile>
#include <QSaveFile>

void appendLine(const QString &path, const QString &line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly)) {
        file.write(bytes);
        return;
    }
    QSaveFile fresh(path);
    if (!fresh.open(QIODevice::WriteOnly))
        return;
    fresh.write(bytes);
    fresh.commit();
}
