#include "overlay/gestures/WheelSteps.h"

#include <cstdlib>

namespace {

constexpr int notch = 120; // eighths of a degree: what one click of a wheel reports

} // namespace

std::optional<WheelSteps::Step> WheelSteps::turned(int eighths)
{
    const bool turnsBack = (eighths > 0) != (m_gathered > 0);
    m_gathered = (turnsBack ? 0 : m_gathered) + eighths;
    if (std::abs(m_gathered) < notch)
        return std::nullopt;
    const Step step = m_gathered > 0 ? Step::up : Step::down;
    m_gathered = 0;
    return step;
}
