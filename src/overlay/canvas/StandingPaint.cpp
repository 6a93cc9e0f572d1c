#include "overlay/canvas/StandingPaint.h"

#include <QWidget>

#include <utility>

QRegion StandingPaint::on(const QPainter &painter) const
{
    const auto window = Bands::lasting(painter, m_widget.backingStore());
    return window && window->memory == m_memory ? m_stands : QRegion();
}

void StandingPaint::painted(const QPainter &painter, const QRegion &part, const QRegion &bare, QPoint shift)
{
    const auto window = Bands::lasting(painter, m_widget.backingStore());
    if (!window)
        return; // painted elsewhere, or in a window where nothing ever stands
    if (std::exchange(m_memory, window->memory) != window->memory)
        m_stands = {};
    m_shift = shift;
    m_stands -= part;
    m_stands += part & window->seen & bare;
}
