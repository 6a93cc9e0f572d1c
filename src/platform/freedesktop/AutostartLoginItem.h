#pragma once

#include "platform/LoginItem.h"

#include <QString>

// An entry in the desktop's autostart folder. The file itself is the state, so
// what other tools do to it shows.
class AutostartLoginItem final : public LoginItem {
public:
    bool enabled() const override;
    void enable() override;
    void disable() override;

    [[nodiscard]] static QString path();
};
