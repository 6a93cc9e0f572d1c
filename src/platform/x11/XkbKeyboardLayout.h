#pragma once

#include "platform/KeyboardLayout.h"

// Asks the X server for its keymap on every call, so the answer is always that of
// the current layout. A call takes a few milliseconds, so it is not for a hot path.
class XkbKeyboardLayout final : public KeyboardLayout {
public:
    std::optional<QString> textOfKey(std::uint32_t evdevCode) const override;
};
