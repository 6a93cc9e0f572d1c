#pragma once

#include <QString>

namespace Version {

// The version of this build, such as "1.4.2".
[[nodiscard]] QString current();

} // namespace Version
