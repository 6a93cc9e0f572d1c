#pragma once

#include <QString>

#include <optional>

// Tests whether a swap can work, before anything depends on it. Each function
// returns what is in the way, if anything, and may take as long as the disk takes.
namespace SwapRehearsal {

// Tests that the bundle's own helper can exchange two small folders beside it, and
// that the bundle may be renamed.
[[nodiscard]] std::optional<QString> exchange(const QString &bundle);

// Tests for the room that the download and what is unpacked from it will take,
// estimated from the present bundle.
[[nodiscard]] std::optional<QString> roomFor(const QString &bundle, const QString &temporary, qint64 archive);

// Tests for the room for so many bytes in a folder.
[[nodiscard]] std::optional<QString> room(const QString &folder, qint64 bytes);

} // namespace SwapRehearsal
