#include "overlay/gestures/WindowPick.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double trembling = 3; // points; anything more is a drag

} // namespace

void WindowPick::pointerMoved(QPointF to)
{
    if (!m_press)
        return;
    const QPointF way = to - *m_press;
    if (std::hypot(way.x(), way.y()) > trembling)
        m_press.reset();
}

std::optional<QPointF> WindowPick::release()
{
    const auto at = std::exchange(m_press, std::nullopt);
    const bool second = std::exchange(m_second, false);
    m_clicked = at && !second;
    return second ? at : std::nullopt;
}

std::optional<QRect> WindowPick::frameAt(const std::vector<QRect> &frames, QPoint pixel)
{
    const auto found = std::ranges::find_if(frames, [pixel](const QRect &r) { return r.contains(pixel); });
    return found == frames.end() ? std::nullopt : std::optional(*found);
}
