#include "overlay/canvas/SnapFade.h"

#include "base/Painting.h"
#include "base/Rect.h"
#include "marks/MarkFootprint.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;
using Painting::Saved;

namespace {

constexpr auto lasts = 280ms;
constexpr auto frame = 16ms;
constexpr double strokeAlpha = 0.55; // of the hand-drawn stroke at the start
constexpr double shapeAlpha = 0.35;  // of the shape at the start
constexpr double excess = 0.04;      // how much larger the shape is at the start

double cubicEaseOut(double p) { return 1 - (1 - p) * (1 - p) * (1 - p); }

Annotation handDrawn(const Annotation &mark)
{
    Annotation stroke(mark.tool, mark.color, mark.width, *mark.original);
    stroke.moved = mark.moved;
    return stroke;
}

void drawStroke(QPainter &painter, const Annotation &mark, const QRectF &exposed, double eased)
{
    const Saved saved(painter);
    painter.setOpacity((1 - eased) * strokeAlpha);
    handDrawn(mark).draw(painter, exposed);
}

void drawShape(QPainter &painter, const Annotation &mark, const QRectF &exposed, double eased)
{
    const QRectF box = QPolygonF(mark.points).boundingRect().translated(mark.moved);
    const QPointF centre{midX(box), midY(box)};
    const double scale = 1 + (1 - eased) * excess;
    const Saved saved(painter);
    painter.translate(centre);
    painter.scale(scale, scale);
    painter.translate(-centre);
    painter.setOpacity(eased * (1 - shapeAlpha) + shapeAlpha);
    mark.draw(painter, exposed | SnapFade::area(mark));
}

} // namespace

QRectF SnapFade::area(const Annotation &mark)
{
    const QRectF shape = MarkFootprint::bounds(mark);
    const QRectF stroke = mark.original ? MarkFootprint::bounds(handDrawn(mark)) : shape;
    const double settling = std::max(shape.width(), shape.height()) * excess / 2;
    return grown(grown(shape, settling) | stroke, mark.strokeWidth() / 2 * (1 + excess));
}

SnapFade::SnapFade()
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(frame);
    m_timer.callOnTimeout([this] { step(); });
}

void SnapFade::start(const Annotation &mark)
{
    stop();
    m_ghost = mark;
    m_since.start();
    m_timer.start();
}

void SnapFade::step()
{
    if (progress() >= 1)
        stop();
    else
        onFrame(area(*m_ghost));
}

void SnapFade::stop()
{
    if (!m_ghost)
        return;
    m_timer.stop();
    onFrame(area(*std::exchange(m_ghost, std::nullopt)));
}

double SnapFade::progress() const
{
    return std::min(std::chrono::nanoseconds(m_since.nsecsElapsed()) / std::chrono::duration<double>(lasts),
                    1.0);
}

void SnapFade::draw(QPainter &painter, const QRectF &exposed) const
{
    const double eased = cubicEaseOut(progress());
    drawStroke(painter, *m_ghost, exposed, eased);
    drawShape(painter, *m_ghost, exposed, eased);
}
