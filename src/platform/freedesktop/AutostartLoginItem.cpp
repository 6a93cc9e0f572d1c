#include "platform/freedesktop/AutostartLoginItem.h"

#include "platform/ProgramId.h"
#include "platform/freedesktop/DesktopEntry.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <algorithm>
#include <optional>

namespace {

constexpr const char *ownersMark = "X-Vellumora-Autostart=true";

// As every string of the file is written.
QString escaped(QString text) { return text.replace(u'\\', u"\\\\"_qs); }

// An argument of the Exec key: in quotes, with the characters escaped that mean
// something inside them, then once more as every string of the file is.
QString execArgument(QString path)
{
    for (const QChar special : QStringView(u"\\\"`$"))
        path.replace(special, u'\\' + QString(special));
    path.replace(u"%"_qs, u"%%"_qs);
    return u'"' + escaped(path) + u'"';
}

// Desktops pass over it once the program it needs has been removed.
QByteArray entry()
{
    const QString program = QCoreApplication::applicationFilePath();
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Vellumora\n"
                          "Exec=%1\n"
                          "TryExec=%2\n"
                          "Icon=%3\n"
                          "Terminal=false\n"
                          "%4\n")
        .arg(execArgument(program), escaped(program), programId(), QLatin1StringView(ownersMark))
        .toUtf8();
}

QString thisProgram() { return QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath(); }

bool startsThisProgram(const QByteArray &entry) { return DesktopEntry::program(entry) == thisProgram(); }

bool isMarked(const QByteArray &entry)
{
    const auto lines = entry.split('\n');
    return std::ranges::any_of(lines, [](const QByteArray &line) { return line.trimmed() == ownersMark; });
}

bool startsAtLogin(const QByteArray &entry)
{
    return DesktopEntry::switchedOn(entry) && startsThisProgram(entry);
}

// Absent when there is nothing of that name, and empty when it cannot be read.
std::optional<QByteArray> currentEntry()
{
    QFile file(AutostartLoginItem::path());
    if (file.open(QIODevice::ReadOnly))
        return file.readAll();
    return file.exists() ? std::optional(QByteArray()) : std::nullopt;
}

// Something of our name that has nothing to do with us. It is nobody's to change.
bool isForeign(const QByteArray &entry) { return !isMarked(entry) && !startsThisProgram(entry); }

void write(const QByteArray &entry)
{
    QSaveFile file(AutostartLoginItem::path());
    if (file.open(QIODevice::WriteOnly) && file.write(entry) == entry.size())
        file.commit();
}

// The folder of the entry, made where it is missing and removed again if nothing
// has come into it.
class Folder {
public:
    Folder()
    {
        for (QString path = m_path; !QFileInfo::exists(path); path = QFileInfo(path).path())
            m_made.append(path);
        QDir().mkpath(m_path);
    }
    ~Folder()
    {
        for (const QString &path : m_made)
            QDir().rmdir(path); // which spares what is not empty
    }
    Q_DISABLE_COPY_MOVE(Folder)

private:
    const QString m_path = QFileInfo(AutostartLoginItem::path()).path();
    QStringList m_made; // innermost first
};

} // namespace

QString AutostartLoginItem::path()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/autostart/%1.desktop").arg(programId());
}

bool AutostartLoginItem::enabled() const { return startsAtLogin(currentEntry().value_or(QByteArray())); }

// An entry that a user or another tool has made for this program keeps the rest of
// what it says.
void AutostartLoginItem::enable()
{
    const Folder folder;
    const auto current = currentEntry();
    if (!current || isMarked(*current))
        write(entry());
    else if (!isForeign(*current))
        write(DesktopEntry::withLine(DesktopEntry::withLine(*current, "Hidden", "false"),
                                     "X-GNOME-Autostart-enabled", "true"));
}

void AutostartLoginItem::disable()
{
    const auto current = currentEntry();
    if (!current || isForeign(*current))
        return;
    if (isMarked(*current))
        QFile::remove(path());
    else
        write(DesktopEntry::withLine(*current, "Hidden", "true"));
}

// Under another name, which no desktop takes for an entry: whatever happens in
// between, the user's own is not touched.
bool AutostartLoginItem::canBeEnabled()
{
    const auto current = currentEntry();
    if (current && isForeign(*current))
        return false;
    const Folder folder;
    QTemporaryFile trial(path() + QStringLiteral(".XXXXXX"));
    return trial.open() && trial.write(entry()) > 0 && trial.flush() && trial.seek(0)
           && startsAtLogin(trial.readAll());
}
