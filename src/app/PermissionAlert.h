#pragma once

#include <functional>

// Says that the system does not let the program see the screens. A second call
// while it shows only brings it to the front.
namespace PermissionAlert {

// Returns at once; openSettings is called when the user wants to change that.
void show(const std::function<void()> &openSettings);

} // namespace PermissionAlert
