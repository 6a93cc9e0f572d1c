#pragma once

#include <functional>

// Something that can show tray icons.
class TrayHost {
public:
    virtual ~TrayHost() = default;

    [[nodiscard]] virtual bool present() const = 0;

    // Called on the main thread when it comes up later.
    std::function<void()> onAppeared;
};
