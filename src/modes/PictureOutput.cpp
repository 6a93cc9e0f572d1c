#include "modes/PictureOutput.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <csignal>
#include <cstdio>

namespace {

// Bytes that only a buffer has taken could still be lost without a word.
constexpr QIODevice::OpenMode straight = QIODevice::WriteOnly | QIODevice::Unbuffered;

bool isPipeOrDevice(const QString &path)
{
    const QFileInfo file(path);
    return file.exists() && !file.isFile() && !file.isDir();
}

bool intoFile(QSaveFile &file, const QByteArray &bytes)
{
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

} // namespace

namespace PictureOutput {

std::optional<QString> write(const QString &file, const QByteArray &bytes)
{
    if (file != u"-" && !isPipeOrDevice(file)) {
        QSaveFile whole(file);
        return intoFile(whole, bytes) ? std::nullopt : std::optional(whole.errorString());
    }
    std::signal(SIGPIPE, SIG_IGN);
    QFile stream(file);
    const bool open = file == u"-" ? stream.open(stdout, straight) : stream.open(straight);
    if (open && stream.write(bytes) == bytes.size())
        return std::nullopt;
    return stream.errorString();
}

} // namespace PictureOutput
