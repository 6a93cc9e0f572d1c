#pragma once

#include "platform/Platform.h"

// Every service answering "not here". Lets the program and its tests run on a
// display that offers nothing.
[[nodiscard]] Platform makeNoPlatform();
