#pragma once

#include "platform/freedesktop/Descriptor.h"

#include <QByteArray>
#include <QString>

#include <optional>

// The script of a swap as a process: what it holds on to when the program has
// gone, and what it hands on to the next one.
namespace BundleScript {

// Locks a folder against every other swap in it. Absent when another one has it.
// Where the file system knows no locks, the swap goes on without.
[[nodiscard]] std::optional<Descriptor> lock(const QString &folder);

// What a script says to take that lock if the program has not left it, and to
// give it up.
[[nodiscard]] QString guard(const QString &folder);
[[nodiscard]] QString unguard();

// Starts the script in a session of its own. Absent when it runs, else what went
// wrong. The bequest stays in memory and goes with whoever holds it last.
[[nodiscard]] std::optional<QString> start(const QString &text, const Descriptor &lock,
                                           const QByteArray &bequest);
// The bequest that this process was started with; empty the second time.
[[nodiscard]] QByteArray takeBequest();

} // namespace BundleScript
