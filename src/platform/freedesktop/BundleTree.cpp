#include "platform/freedesktop/BundleTree.h"

#include <QFile>

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

constexpr qint64 block = 4096; // bytes
constexpr auto foreignRights = fs::perms::set_uid | fs::perms::set_gid;

bool isInside(const fs::path &path, const fs::path &root)
{
    const auto [ofRoot, ofPath] = std::ranges::mismatch(root, path);
    return ofRoot == root.end();
}

// A link into the dark is refused as well: who knows what will be there one day.
bool staysInside(const fs::path &link, const fs::path &root)
{
    std::error_code error;
    const fs::path end = fs::canonical(link, error);
    return !error && isInside(end, root);
}

bool belongs(const fs::path &entry, const fs::path &root)
{
    std::error_code error;
    const fs::file_status status = fs::symlink_status(entry, error);
    if (fs::is_symlink(status))
        return staysInside(entry, root);
    if (!fs::is_directory(status) && !fs::is_regular_file(status))
        return false;
    // A folder may hand its group on to what is made in it; that runs nothing.
    return fs::is_directory(status) || (status.permissions() & foreignRights) == fs::perms::none;
}

QString named(const fs::path &path) { return QFile::decodeName(path.c_str()); }

} // namespace

namespace BundleTree {

std::optional<QString> strayEntry(const QString &bundle)
{
    const fs::path given(QFile::encodeName(bundle).toStdString());
    std::error_code error;
    const fs::file_status status = fs::symlink_status(given, error);
    if (status.type() == fs::file_type::not_found)
        return std::nullopt;
    if (!fs::is_directory(status))
        return QStringLiteral(".");
    const fs::path root = fs::canonical(given, error);
    auto entry = fs::recursive_directory_iterator(root, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error))
        if (!belongs(entry->path(), root))
            return named(entry->path().lexically_relative(root));
    if (error)
        return QString::fromLocal8Bit(error.message());
    return std::nullopt;
}

qint64 sizeOfEntry(qint64 bytes) { return std::max(bytes, block); }

qint64 size(const QString &bundle)
{
    std::error_code error;
    fs::recursive_directory_iterator entry(QFile::encodeName(bundle).toStdString(), error);
    qint64 sum = 0;
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        std::error_code unknown;
        const bool file = entry->is_regular_file(unknown) && !entry->is_symlink(unknown);
        sum += sizeOfEntry(file ? qint64(entry->file_size(unknown)) : 0);
    }
    return sum;
}

} // namespace BundleTree
