#pragma once

#include <QString>

// Watches the glow for some ten seconds, as it turns, stands still and flashes.
namespace HaloTestMode {

// Writes a film strip of each into the folder, round the middle of the picture,
// and says on standard output how long its frames took. Answers the status to
// end with: 0, or 1 after a sentence on standard error.
[[nodiscard]] int run(const QString &picture, const QString &folder);

} // namespace HaloTestMode
