#include "platform/freedesktop/BundleScript.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <cstring>
#include <spawn.h>
#include <sys/file.h>
#include <sys/mman.h>

namespace {

// The shell's numbers for what it inherits.
constexpr int lockNumber = 9;
constexpr int bequestNumber = 8;
constexpr auto memoryName = "vellumora-bequest";

QString error(int code) { return QString::fromLocal8Bit(std::strerror(code)); }

Descriptor memoryWith(const QByteArray &bytes)
{
    if (bytes.isEmpty())
        return Descriptor();
    Descriptor memory(memfd_create(memoryName, MFD_CLOEXEC));
    QFile file;
    const bool written = file.open(memory.number(), QIODevice::WriteOnly | QIODevice::Unbuffered)
                         && file.write(bytes) == bytes.size();
    return written ? std::move(memory) : Descriptor();
}

// What the child's descriptors are, in terms of ours.
class Inheritance {
public:
    Inheritance()
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawnattr_init(&m_attributes);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSID);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&m_actions, stream, "/dev/null", O_RDWR, 0);
        // Not in a folder that the script removes.
        posix_spawn_file_actions_addchdir_np(&m_actions, "/");
    }
    ~Inheritance()
    {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }
    Q_DISABLE_COPY_MOVE(Inheritance)

    void add(const Descriptor &ours, int theirs)
    {
        if (ours.isOpen())
            posix_spawn_file_actions_adddup2(&m_actions, ours.number(), theirs);
    }

    // Zero, or the error.
    [[nodiscard]] int spawn(char *const *arguments) const
    {
        pid_t child = 0;
        return posix_spawn(&child, arguments[0], &m_actions, &m_attributes, arguments, environ);
    }

private:
    posix_spawn_file_actions_t m_actions = {};
    posix_spawnattr_t m_attributes = {};
};

} // namespace

namespace BundleScript {

std::optional<Descriptor> lock(const QString &folder)
{
    Descriptor opened(open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.isOpen() && flock(opened.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return std::nullopt;
    return opened;
}

QString guard(const QString &folder)
{
    // Only a lock that somebody has is a reason to stop, not that there is none.
    return QStringLiteral("{ true <&%1; } 2>/dev/null || exec %1<\"%2\"; "
                          "/usr/bin/flock -n %1; [ $? = 1 ] && exit")
        .arg(QString::number(lockNumber), folder);
}

QString unguard() { return QStringLiteral("exec %1<&-").arg(lockNumber); }

std::optional<QString> start(const QString &text, const Descriptor &lock, const QByteArray &bequest)
{
    const Descriptor memory = memoryWith(bequest);
    Inheritance inheritance;
    inheritance.add(lock, lockNumber);
    inheritance.add(memory, bequestNumber);
    QByteArray shell("/bin/sh");
    QByteArray option("-c");
    QByteArray script = QFile::encodeName(text);
    const std::array arguments{shell.data(), option.data(), script.data(), static_cast<char *>(nullptr)};
    const int problem = inheritance.spawn(arguments.data());
    if (problem != 0)
        return QStringLiteral("/bin/sh: ") + error(problem);
    return std::nullopt;
}

QByteArray takeBequest()
{
    // Any other descriptor of that number is somebody else's.
    const QString link = QStringLiteral("/proc/self/fd/%1").arg(bequestNumber);
    if (!QFile::symLinkTarget(link).contains(QStringLiteral("/memfd:") + QLatin1String(memoryName)))
        return {};
    const Descriptor memory(bequestNumber);
    QFile file;
    if (!file.open(memory.number(), QIODevice::ReadOnly) || !file.seek(0))
        return {};
    return file.readAll();
}

} // namespace BundleScript
