#pragma once

// Whether the desktop starts this program at login. The state is always the
// desktop's own; errors show only in it.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    [[nodiscard]] virtual bool enabled() const = 0;
    virtual void enable() = 0;
    virtual void disable() = 0;

    // Whether enabling would work. It is tried out beside the state, which stays
    // as it is.
    [[nodiscard]] virtual bool canBeEnabled() = 0;
};
