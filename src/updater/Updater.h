#pragma once

// Newer versions of the program.
namespace Updater {

enum class Asked { byUser, byItself };

// For now it only notes in the log that it was asked.
void check(Asked asked);

} // namespace Updater
