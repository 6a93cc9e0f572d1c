#include "platform/freedesktop/BundleInstaller.h"

#include "platform/freedesktop/BundleScript.h"
#include "platform/freedesktop/BundleTree.h"
#include "platform/freedesktop/SwapRehearsal.h"
#include "platform/freedesktop/SystemTool.h"

#include <QCoroFuture>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QtConcurrentRun>

#include <sys/stat.h>
#include <sys/statvfs.h>

namespace {

using Problem = UpdateInstaller::Problem;

constexpr int versionPatience = 10'000; // milliseconds
constexpr int sizeColumn = 2;           // of tar's long lines

// Every tool of the system that an update uses.
namespace Tools {

// An administrator's tar would restore foreign owners and rights. It says of
// each entry what it is before it unpacks it.
SystemTool attach(const QString &image, const QString &mount)
{
    return {u"/usr/bin/tar"_qs,
            {u"-xf"_qs, image, u"-C"_qs, mount, u"--no-same-owner"_qs, u"--no-same-permissions"_qs, u"-vv"_qs,
             u"--numeric-owner"_qs}};
}
SystemTool detach(const QString &mount) { return {u"/usr/bin/rm"_qs, {u"-rf"_qs, mount}}; }
SystemTool ditto(const QString &from, const QString &to) { return {u"/usr/bin/cp"_qs, {u"-a"_qs, from, to}}; }
SystemTool unlock(const QStringList &paths)
{
    return {u"/usr/bin/chmod"_qs, QStringList{u"-R"_qs, u"u+rwX"_qs, u"--"_qs} + paths};
}
SystemTool remove(const QStringList &paths)
{
    return {u"/usr/bin/rm"_qs, QStringList{u"-rf"_qs, u"--"_qs} + paths};
}

SwapCommands swap(const QString &bundle)
{
    return {.guard = BundleScript::guard(QFileInfo(bundle).path()),
            .copy = u"/usr/bin/cp -a"_qs,
            .exchange = u"\"%1/bin/vellumora-exchange\""_qs.arg(bundle),
            .open = BundleScript::unguard() + u"; /usr/bin/setsid --fork"_qs};
}

// The script cannot say what it misses.
const QStringList ofTheScript{u"/usr/bin/cp"_qs, u"/usr/bin/setsid"_qs};

} // namespace Tools

std::optional<QString> unpack(const QString &image, const QString &mount, qint64 limit)
{
    qint64 size = 0; // bytes
    const auto count = [&](const QByteArray &line) {
        const auto columns = QString::fromUtf8(line).split(u' ', Qt::SkipEmptyParts);
        size += BundleTree::sizeOfEntry(columns.value(sizeColumn).toLongLong());
        return size <= limit;
    };
    const auto problem = Tools::attach(image, mount).run(count);
    return size > limit ? u"> %1 B"_qs.arg(limit) : problem;
}

Problem copyOut(const QString &image, const QString &mount, const QString &staged, qint64 limit)
{
    const QString bundle = mount + u"/Vellumora.app"_qs;
    if (auto problem = unpack(image, mount, limit))
        return problem;
    if (const auto stray = BundleTree::strayEntry(bundle))
        return u"Vellumora.app: "_qs + *stray;
    return Tools::ditto(bundle, staged).run();
}

Problem stageNow(const QString &image, const QString &mount, const QString &staged, qint64 limit)
{
    QDir().mkpath(mount);
    auto problem = copyOut(image, mount, staged, limit);
    // What cannot be removed goes with the folder around it.
    (void)Tools::detach(mount).run();
    return problem;
}

Problem tryOutNow(const QString &staged, const QString &version, const QString &folder)
{
    const SystemTool program{staged + u"/bin/vellumora"_qs, {u"--version"_qs}};
    const QString wanted = u"Vellumora "_qs + version;
    QString said;
    const auto keep = [&](const QByteArray &line) {
        said += QString::fromUtf8(line);
        return said.size() <= 2 * wanted.size();
    };
    if (auto problem = program.run(keep, versionPatience))
        return problem;
    if (said.trimmed() != wanted)
        return u"%1 ≠ %2"_qs.arg(said.trimmed(), wanted);
    return SwapRehearsal::room(folder, BundleTree::size(staged));
}

Problem rehearseNow(const QString &bundle, const QString &temporary, qint64 archive)
{
    for (const QString &tool : Tools::ofTheScript)
        if (!QFileInfo(tool).isExecutable())
            return tool;
    if (auto problem = SwapRehearsal::roomFor(bundle, temporary, archive))
        return problem;
    return SwapRehearsal::exchange(bundle);
}

// Everything whose name is the bundle's and more than that is an update's.
void sweepNow(const QString &bundle, QStringList paths)
{
    const QFileInfo info(bundle);
    constexpr auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QFileInfo &entry : info.dir().entryInfoList(all))
        if (entry.fileName().startsWith(info.fileName() + u".anterior"_qs)
            || entry.fileName().startsWith(info.fileName() + u".prueba-"_qs))
            paths.append(entry.filePath());
    QStringList folders;
    std::ranges::copy_if(paths, std::back_inserter(folders), [](const QString &path) {
        return QFileInfo(path).isDir() && !QFileInfo(path).isSymLink();
    });
    // What is gone or not ours is not worth a word: the next one tries again.
    if (!folders.isEmpty())
        (void)Tools::unlock(folders).run();
    if (!paths.isEmpty())
        (void)Tools::remove(paths).run();
}

bool isRunnable(const QString &folder)
{
    struct statvfs found = {};
    return statvfs(QFile::encodeName(folder).constData(), &found) != 0 || (found.f_flag & ST_NOEXEC) == 0;
}

// In a folder such as /tmp everybody may rename only what is his own.
bool mayRename(const QString &bundle, const QString &folder)
{
    struct stat of = {};
    struct stat in = {};
    if (stat(QFile::encodeName(bundle).constData(), &of) != 0
        || stat(QFile::encodeName(folder).constData(), &in) != 0)
        return false;
    const uid_t user = geteuid();
    return (in.st_mode & S_ISVTX) == 0 || user == 0 || user == in.st_uid || user == of.st_uid;
}

} // namespace

BundleInstaller::BundleInstaller(QString program, qint64 limit)
    : m_program(std::move(program))
    , m_limit(limit)
{}

// The system knows where the running program is by now.
QString BundleInstaller::program() const
{
    return m_program.isEmpty() ? QFile::symLinkTarget(u"/proc/self/exe"_qs) : m_program;
}

std::optional<QString> BundleInstaller::bundle() const
{
    const QFileInfo folder(QFileInfo(program()).path());
    const QString bundle = folder.path();
    if (folder.fileName() != u"bin" || !bundle.endsWith(u".app"))
        return std::nullopt;
    return bundle;
}

// Everything there belongs to packages but what the administrator keeps by hand.
bool BundleInstaller::isManaged() const
{
    return !bundle() && program().startsWith(u"/usr/") && !program().startsWith(u"/usr/local/");
}

bool BundleInstaller::canReplace(const QString &bundle) const
{
    const QString folder = QFileInfo(bundle).path();
    return QFileInfo(folder).isWritable() && mayRename(bundle, folder);
}

QString BundleInstaller::temporaryFolder() const
{
    const QString usual = QDir::temp().absolutePath();
    return isRunnable(usual) ? usual : QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
}

SwapCommands BundleInstaller::commands(const QString &bundle) const { return Tools::swap(bundle); }

bool BundleInstaller::claim(const QString &bundle)
{
    auto lock = BundleScript::lock(QFileInfo(bundle).path());
    if (!lock)
        return false;
    m_lock = std::move(lock);
    return true;
}

void BundleInstaller::release() { m_lock.reset(); }

QCoro::Task<void> BundleInstaller::sweep(QString bundle, QStringList paths)
{
    co_await QtConcurrent::run(sweepNow, bundle, paths);
}

QCoro::Task<Problem> BundleInstaller::rehearse(QString bundle, qint64 archive)
{
    co_return co_await QtConcurrent::run(rehearseNow, bundle, temporaryFolder(), archive);
}

QCoro::Task<Problem> BundleInstaller::stage(QString image, QString mount, QString staged)
{
    co_return co_await QtConcurrent::run(stageNow, image, mount, staged, m_limit);
}

QCoro::Task<Problem> BundleInstaller::tryOut(QString staged, QString version, QString folder)
{
    co_return co_await QtConcurrent::run(tryOutNow, staged, version, folder);
}

Problem BundleInstaller::start(const QString &script, const QByteArray &bequest)
{
    const Descriptor none;
    return BundleScript::start(script, m_lock ? *m_lock : none, bequest);
}

QByteArray BundleInstaller::takeBequest() { return BundleScript::takeBequest(); }
