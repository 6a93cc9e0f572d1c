#include "platform/freedesktop/SwapRehearsal.h"

#include "platform/freedesktop/BundleTree.h"
#include "platform/freedesktop/SystemTool.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>

namespace {

// The unpacked image and the copy of the bundle in it.
constexpr int copiesUnpacked = 2;

QString failed(const QString &path, int error)
{
    return path + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(error));
}

// Two folders that go with it.
class Pair {
public:
    explicit Pair(const QString &beside)
        : one(beside + QStringLiteral(".prueba-1"))
        , other(beside + QStringLiteral(".prueba-2"))
    {
        for (const QString &path : {one, other})
            if (!problem && mkdir(QFile::encodeName(path).constData(), S_IRWXU) != 0)
                problem = failed(path, errno);
        if (!problem && !QDir(one).mkdir(mark))
            problem = failed(one, errno);
    }
    ~Pair()
    {
        for (const QString &path : {one, other})
            QDir(path).removeRecursively();
    }
    Q_DISABLE_COPY_MOVE(Pair)

    [[nodiscard]] bool exchanged() const { return QDir(other).exists(mark) && !QDir(one).exists(mark); }

    const QString one;
    const QString other;
    std::optional<QString> problem;

private:
    const QString mark = QStringLiteral("1");
};

std::filesystem::path toPath(const QString &path) { return QFile::encodeName(path).toStdString(); }

bool sameStorage(const QString &one, const QString &other)
{
    struct stat a = {};
    struct stat b = {};
    return stat(toPath(one).c_str(), &a) == 0 && stat(toPath(other).c_str(), &b) == 0 && a.st_dev == b.st_dev;
}

// No folder takes the place of one that is not empty, so this changes nothing,
// but anything else that is in the way of the bundle's own name comes first.
std::optional<QString> rename(const QString &bundle, const QString &full)
{
    const QByteArray from = QFile::encodeName(bundle);
    const QByteArray to = QFile::encodeName(full);
    if (std::rename(from.constData(), to.constData()) != 0)
        return errno == ENOTEMPTY || errno == EEXIST ? std::nullopt : std::optional(failed(bundle, errno));
    const bool back = std::rename(to.constData(), from.constData()) == 0;
    return back ? std::nullopt : std::optional(failed(full, errno));
}

} // namespace

namespace SwapRehearsal {

std::optional<QString> exchange(const QString &bundle)
{
    const Pair pair(bundle);
    if (pair.problem)
        return pair.problem;
    const SystemTool helper{bundle + QStringLiteral("/bin/vellumora-exchange"), {pair.one, pair.other}};
    if (!QFileInfo(helper.program).isExecutable())
        return failed(helper.program, ENOENT);
    if (auto problem = rename(bundle, pair.one))
        return problem;
    if (auto problem = helper.run())
        return problem;
    return pair.exchanged() ? std::nullopt : std::optional(helper.program);
}

std::optional<QString> room(const QString &folder, qint64 bytes)
{
    // Asked of the folder itself: the list of mounts may not be readable. Not every
    // file system knows.
    std::error_code unknown;
    const auto space = std::filesystem::space(toPath(folder), unknown);
    const bool enough
        = unknown || space.capacity == 0 || space.available >= static_cast<std::uintmax_t>(bytes);
    return enough ? std::nullopt : std::optional(failed(folder, ENOSPC));
}

std::optional<QString> roomFor(const QString &bundle, const QString &temporary, qint64 archive)
{
    const QString folder = QFileInfo(bundle).path();
    const qint64 size = BundleTree::size(bundle);
    const qint64 work = archive + copiesUnpacked * size;
    if (auto problem = room(temporary, sameStorage(folder, temporary) ? work + size : work))
        return problem;
    return room(folder, size);
}

} // namespace SwapRehearsal
