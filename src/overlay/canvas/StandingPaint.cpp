#include "overlay/canvas/StandingPaint.h"

#include <utility>

QRegion StandingPaint::on(const QPainter &painter) const
{
    const auto window = Bands::lasting(painter);
    return window && window->memory == m_memory ? m_stands : QRegion();
}

void StandingPaint::painted(const QPainter &painter, const QRegion &part, const QRegion &bare, QPoint shift)
{
    const auto window = Bands::lasting(painter);
    const void *memory = window ? window->memory : nullptr;
    if (std::exchange(m_memory, memory) != memory)
        m_stands = {};
    m_shift = shift;
    m_stands -= part;
    if (window)
        m_stands += part & window->seen & bare;
}
