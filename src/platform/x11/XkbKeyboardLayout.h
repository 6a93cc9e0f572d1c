#pragma once

#include "platform/KeyboardLayout.h"

// Asks the server for its keymap on every call, so the answer is always that of
// the layout in use. A few milliseconds; not for a hot path.
class XkbKeyboardLayout final : public KeyboardLayout {
public:
    std::optional<QString> textOfKey(std::uint32_t evdevCode) const override;
};
