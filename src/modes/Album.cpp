#include "modes/Album.h"

#include "modes/Console.h"
#include "overlay/ImageFiles.h"

#include <QSaveFile>
#include <QTemporaryFile>

namespace {

bool written(const QString &path, const QImage &picture)
{
    const auto bytes = ImageFiles::png(picture, picture.devicePixelRatio());
    QSaveFile file(path);
    return bytes && file.open(QIODevice::WriteOnly) && file.write(*bytes) == bytes->size() && file.commit();
}

} // namespace

std::optional<QString> Album::problemWith(const QString &folder)
{
    if (!QDir().mkpath(folder))
        return QStringLiteral("cannot make the folder %1").arg(folder);
    QTemporaryFile probe(QDir(folder).filePath(QStringLiteral("vellumora-XXXXXX")));
    if (!probe.open())
        return QStringLiteral("cannot write into the folder %1: %2").arg(folder, probe.errorString());
    return std::nullopt;
}

void Album::add(const QString &name, const QImage &picture)
{
    const QString path = m_folder.absoluteFilePath(name + QStringLiteral(".png"));
    if (written(path, picture))
        return Console::say(path);
    Console::complain(QStringLiteral("cannot write %1").arg(path));
    m_complete = false;
}
