#pragma once

#include <QCoroTask>

// What desktops that animate windows still show of those that have been hidden.
namespace Fading {

// Waits until hidden windows of this program have faded; returns at once when it
// has never had one.
[[nodiscard]] QCoro::Task<void> over();

} // namespace Fading
