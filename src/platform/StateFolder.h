#pragma once

#include <QString>

// Returns the folder in which this system wants a program to keep what it writes down
// about itself, such as logs. It need not exist.
[[nodiscard]] QString stateFolder();
