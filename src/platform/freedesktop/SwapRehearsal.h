#pragma once

#include <QString>

#include <optional>

// Whether a swap can work, tried before anything depends on it. Each answers
// with what is in the way, and may take as long as the disk takes.
namespace SwapRehearsal {

// The bundle's own helper exchanges two small folders beside it, and the bundle
// may change its name.
[[nodiscard]] std::optional<QString> exchange(const QString &bundle);

// The room for the download and what is unpacked of it, as far as one can tell
// from the bundle as it is.
[[nodiscard]] std::optional<QString> roomFor(const QString &bundle, const QString &temporary, qint64 archive);

// The room for so many bytes in a folder.
[[nodiscard]] std::optional<QString> room(const QString &folder, qint64 bytes);

} // namespace SwapRehearsal
