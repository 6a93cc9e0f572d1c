#include "modes/Report.h"

#include "modes/Console.h"

#include <QDir>
#include <QSaveFile>

namespace {

constexpr int column = 12; // letters of a service's name

} // namespace

void Report::add(const QString &line)
{
    Console::say(line);
    m_lines.append(line);
}

void Report::note(const QString &name, const QString &fact) { add(name.leftJustified(column) + u' ' + fact); }

void Report::works(const QString &service, const QString &detail)
{
    add(service.leftJustified(column) + QStringLiteral(" works    ") + detail);
}

void Report::missing(const QString &service, const QString &whatToDo)
{
    add(service.leftJustified(column) + QStringLiteral(" missing  ") + whatToDo);
}

void Report::say(const QString &line) { add(line); }

bool Report::write(const QString &folder) const
{
    QSaveFile file(QDir(folder).filePath(QStringLiteral("report.txt")));
    const QByteArray bytes = (m_lines.join(u'\n') + u'\n').toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    Console::complain(QStringLiteral("cannot write %1: %2").arg(file.fileName(), file.errorString()));
    return false;
}
