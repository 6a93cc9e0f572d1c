#pragma once

// Whether the desktop starts this program at login. The state is always the
// desktop's own; errors show only in it.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    [[nodiscard]] virtual bool enabled() const = 0;
    virtual void enable() = 0;
    virtual void disable() = 0;
};
