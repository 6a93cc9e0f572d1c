#pragma once

// Switches starting this program at login on and off. The state is always the
// desktop's own; errors show only in it.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    [[nodiscard]] virtual bool enabled() const = 0;
    virtual void enable() = 0;
    virtual void disable() = 0;

    // Returns whether enabling would work. This is tried out without changing the
    // state.
    [[nodiscard]] virtual bool canBeEnabled() = 0;
};
