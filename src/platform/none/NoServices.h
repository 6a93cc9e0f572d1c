#pragma once

#include "platform/Platform.h"

// Returns services that all answer "not available". They let the program and its
// tests run on a display that offers nothing.
[[nodiscard]] Platform makeNoPlatform();

// Returns a list for desktops that tell nobody where their windows are.
[[nodiscard]] std::unique_ptr<WindowList> makeNoWindowList();
