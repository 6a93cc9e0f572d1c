#pragma once

#include <functional>

// Represents a kind of tray that can show icons.
class TrayHost {
public:
    virtual ~TrayHost() = default;

    [[nodiscard]] virtual bool present() const = 0;

    // Called on the main thread when a tray of this kind appears later.
    std::function<void()> onAppeared;
};
