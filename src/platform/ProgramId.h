#pragma once

#include <QString>

// Returns what desktops know this program by: the name of its desktop entry without
// the suffix, of its icon, and of whatever else belongs to one program alone.
[[nodiscard]] QString programId();
