#pragma once

#include "platform/LoginItem.h"

#include <QString>

// An entry in the desktop's autostart folder. The file itself is the state, so
// what other tools do to it shows: it counts as on when the desktop would start
// this very program by it, not a copy in another place.
class AutostartLoginItem final : public LoginItem {
public:
    bool enabled() const override;
    void enable() override;
    void disable() override;
    bool canBeEnabled() override;

    [[nodiscard]] static QString path();
};
