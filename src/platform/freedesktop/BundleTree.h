#pragma once

#include <QString>

#include <optional>

// Checks what a bundle contains. It may hold folders, plain files that do not run
// with another user's rights, and links that end inside it.
namespace BundleTree {

// Returns the first entry that a bundle may not hold, as a path from its root ("."
// for the root itself), or the error when it cannot be read. Absent when every
// entry is allowed and when there is no bundle.
[[nodiscard]] std::optional<QString> strayEntry(const QString &bundle);

// Returns the room that the bundle takes on a disk, in bytes; every entry counts as
// one block at least.
[[nodiscard]] qint64 size(const QString &bundle);
[[nodiscard]] qint64 sizeOfEntry(qint64 bytes);

} // namespace BundleTree
