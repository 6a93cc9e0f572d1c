#pragma once

#include <QPoint>

#include <optional>

// Makes steps out of what wheels and touchpads report. A notch of a wheel is a
// step whatever its size; a touchpad's many small turns add up to one.
class WheelSteps {
public:
    enum class Step { up, down };

    // The vertical turn of one event in eighths of a degree, upwards positive.
    [[nodiscard]] std::optional<Step> turned(int eighths);

private:
    int m_gathered = 0;
};
