#pragma once

#include "platform/freedesktop/Descriptor.h"

#include <QByteArray>
#include <QString>

#include <optional>

// Starts the script of a swap as a process: what it holds on to once the program
// has ended, and what it hands on to the next one.
namespace BundleScript {

// Locks a folder against every other swap in it. Absent when another swap holds the
// lock. Where the file system supports no locks, the swap goes on without one.
[[nodiscard]] std::optional<Descriptor> lock(const QString &folder);

// Return the shell commands that take that lock, unless the program has left it to
// the script, and that give it up.
[[nodiscard]] QString guard(const QString &folder);
[[nodiscard]] QString unguard();

// Starts the script in a session of its own. Returns nothing when it runs,
// otherwise what went wrong. The bequest stays in memory until the last process
// that holds it ends.
[[nodiscard]] std::optional<QString> start(const QString &text, const Descriptor &lock,
                                           const QByteArray &bequest);
// Returns the bequest that this process was started with; empty on the second call.
[[nodiscard]] QByteArray takeBequest();

} // namespace BundleScript
