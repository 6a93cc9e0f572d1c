#pragma once

#include <QString>

#include <optional>

// What may be in a bundle: folders, plain files without rights of another user,
// and links that end inside it.
namespace BundleTree {

// The first entry that may not, as a path from the bundle's root ("." for the
// root itself) and the reason; absent when all may, or when there is no bundle.
[[nodiscard]] std::optional<QString> strayEntry(const QString &bundle);

// The room that it takes on a disk, in bytes; every entry counts a block at
// least.
[[nodiscard]] qint64 size(const QString &bundle);
[[nodiscard]] qint64 sizeOfEntry(qint64 bytes);

} // namespace BundleTree
