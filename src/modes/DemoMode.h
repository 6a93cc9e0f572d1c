#pragma once

#include <QString>
#include <QStringList>

// A capture by script, on a screen that shows the given picture and in a home
// folder of its own, so that nothing of the user's is touched. The same pictures
// come out on every machine.
namespace DemoMode {

// Whether this process is one of those that the demonstration starts, and at
// how many pixels a point.
[[nodiscard]] int scaleOfPass();

// Writes numbered PNG files of what the user would see and what would be copied
// into the folder, at one and at two pixels a point and, where there are texts,
// in every language. Says each path on standard output. Answers the status to
// end with: 0, or 1 after a sentence on standard error. The environment variable
// VELLUMORA_DEMO_MUESTRA chooses one of them by its name.
[[nodiscard]] int run(const QString &picture, const QString &folder);

} // namespace DemoMode
