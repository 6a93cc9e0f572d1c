#include "modes/Album.h"

#include "modes/Console.h"
#include "pictures/ImageFiles.h"

#include <QSaveFile>

namespace {

bool written(const QString &path, const QImage &picture)
{
    const auto bytes = ImageFiles::png(picture, picture.devicePixelRatio());
    QSaveFile file(path);
    return bytes && file.open(QIODevice::WriteOnly) && file.write(*bytes) == bytes->size() && file.commit();
}

} // namespace

void Album::add(const QString &name, const QImage &picture)
{
    const QString path = m_folder.absoluteFilePath(name + QStringLiteral(".png"));
    if (written(path, picture))
        return Console::say(path);
    Console::complain(QStringLiteral("cannot write %1").arg(path));
    m_complete = false;
}
