#include "overlay/canvas/WidthSample.h"

#include "overlay/canvas/WidthPreview.h"

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto shows = 1200ms;

} // namespace

void WidthSample::show(QPointF at)
{
    m_at = at;
    m_notice.present(WidthPreview::panel(m_state, at), shows,
                     [this](QPainter &painter) { WidthPreview::draw(painter, m_state, m_at); });
}

void WidthSample::follow()
{
    if (m_notice.isVisible())
        m_notice.replace(WidthPreview::panel(m_state, m_at),
                         [this](QPainter &painter) { WidthPreview::draw(painter, m_state, m_at); });
}
