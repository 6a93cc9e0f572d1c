#pragma once

#include <QString>

// Films the glow for some ten seconds while it turns, stands still and flashes.
namespace HaloTestMode {

// Writes a film strip of each into the folder, with the glow round the middle of
// the picture, and prints on standard output how long the frames took. Returns the
// exit status: 0, or 1 after a sentence on standard error.
[[nodiscard]] int run(const QString &picture, const QString &folder);

} // namespace HaloTestMode
