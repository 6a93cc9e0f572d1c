#include "overlay/canvas/StandingPaint.h"

#include <utility>

QRegion StandingPaint::on(const QPainter &painter) const
{
    const auto window = Bands::lasting(painter);
    return window && window->picture == m_picture ? m_stands : QRegion();
}

void StandingPaint::painted(const QPainter &painter, const QRegion &part, const QRegion &bare, QPoint shift)
{
    const auto window = Bands::lasting(painter);
    const auto picture = window ? std::optional(window->picture) : std::nullopt;
    if (std::exchange(m_picture, picture) != picture)
        m_stands = {};
    m_shift = shift;
    m_stands -= part;
    if (window)
        m_stands += part & window->seen & bare;
}
