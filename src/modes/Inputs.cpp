#include "modes/Inputs.h"

#include "modes/Console.h"

#include <QDir>
#include <QImageReader>
#include <QTemporaryFile>

namespace {

// Above Qt's own limit, which a screen of 7680 × 4320 pixels exceeds.
constexpr int largestPicture = 1024; // megabytes in memory

} // namespace

namespace Inputs {

std::optional<QImage> screenFrom(const QString &picture)
{
    QImageReader::setAllocationLimit(largestPicture);
    QImageReader reader(picture);
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    if (!image.isNull())
        return image.convertToFormat(QImage::Format_RGB32);
    Console::complain(QStringLiteral("cannot read the picture %1: %2").arg(picture, reader.errorString()));
    return std::nullopt;
}

bool folderReady(const QString &folder)
{
    if (!QDir().mkpath(folder)) {
        Console::complain(QStringLiteral("cannot make the folder %1").arg(folder));
        return false;
    }
    QTemporaryFile probe(QDir(folder).filePath(QStringLiteral("vellumora-XXXXXX")));
    if (!probe.open()) {
        Console::complain(
            QStringLiteral("cannot write into the folder %1: %2").arg(folder, probe.errorString()));
        return false;
    }
    return true;
}

} // namespace Inputs
