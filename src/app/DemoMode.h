#pragma once

#include <QString>

class Desktop;

// A capture by script: the real editor works on a given picture as if it were a
// screen, and what the user would see and get is written as PNG files.
namespace DemoMode {

// Prints the path of every file. The status to end the process with: 0, or 1
// after one line on standard error that says what went wrong.
[[nodiscard]] int run(const QString &picture, const QString &folder, Desktop &desktop);

} // namespace DemoMode
