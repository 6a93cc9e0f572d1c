#pragma once

#include <QString>
#include <QStringList>

// Plays a scripted capture on a screen that shows the given picture and in a home
// folder of its own, so that nothing of the user's is touched. Every machine
// produces the same pictures.
namespace DemoMode {

// Returns the pixels per point of this process, which may be one of those that the
// demonstration starts; 1 for any other process.
[[nodiscard]] int scaleOfPass();

// Writes numbered PNG files of what the user would see and what would be copied
// into the folder: at one and at two pixels per point and, where there are texts,
// in every language. Prints each path on standard output. The environment variable
// VELLUMORA_DEMO_MUESTRA selects a single scene by its name. Returns the exit
// status: 0, or 1 after a sentence on standard error.
[[nodiscard]] int run(const QString &picture, const QString &folder);

} // namespace DemoMode
