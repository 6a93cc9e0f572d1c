#pragma once

#include "platform/LoginItem.h"

#include <QString>

// Manages an entry in the desktop's autostart folder. The file itself is the state,
// so changes by other tools show: it counts as on when it makes the desktop start
// this very program, not a copy in another place.
class AutostartLoginItem final : public LoginItem {
public:
    bool enabled() const override;
    void enable() override;
    void disable() override;
    bool canBeEnabled() override;

    [[nodiscard]] static QString path();
};
