#pragma once

#include <QPoint>

#include <optional>

// Turns what wheels and touchpads report into steps. A notch of a wheel is one
// step, whatever its size; the many small turns of a touchpad add up to one.
class WheelSteps {
public:
    enum class Step { up, down };

    // Returns the step that an event completes, if any. The vertical turn is given
    // in eighths of a degree, upwards positive.
    [[nodiscard]] std::optional<Step> turned(int eighths);

private:
    int m_gathered = 0;
};
