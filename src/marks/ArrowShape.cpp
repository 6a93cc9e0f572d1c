#include "marks/ArrowShape.h"

#include "base/Painting.h"
#include "marks/Annotation.h"
#include "marks/Reach.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double shortest = 2;      // points
constexpr double headFactor = 4.5;  // of the line width
constexpr double smallestHead = 10; // points
constexpr double halfAngle = 0.42;  // of the head, radians
constexpr double shaftInHead = 0.8; // of the head's length

QPointF towards(double angle, double length) { return {length * std::cos(angle), length * std::sin(angle)}; }

void draw(QPainter &painter, const Annotation &mark, const QRectF &)
{
    const auto arrow = ArrowShape::of(mark);
    if (!arrow)
        return;
    const Painting::Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Painting::roundPen(mark.color, mark.width, Qt::MiterJoin));
    painter.drawLine(arrow->shaft);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mark.color);
    painter.drawPolygon(arrow->head);
}

Look::Boxes boxes(const Annotation &mark)
{
    const auto arrow = ArrowShape::of(mark);
    if (!arrow)
        return {};
    Look::Boxes boxes{Reach::spill(Reach::boxOf(arrow->head), 0)};
    Reach::addLine(boxes, arrow->shaft.p1(), arrow->shaft.p2(), mark.width / 2);
    return boxes;
}

QRectF bounds(const Annotation &mark)
{
    const auto arrow = ArrowShape::of(mark);
    return arrow ? Reach::boxOf(arrow->head + QPolygonF{arrow->shaft.p1()}) : QRectF();
}

bool isNear(const Annotation &mark, QPointF point, double slack)
{
    const auto arrow = ArrowShape::of(mark);
    return arrow
           && (arrow->head.containsPoint(point, Qt::WindingFill)
               || Reach::passes(arrow->head + QPolygonF{arrow->head.first()}, point, slack)
               || Reach::passes({arrow->shaft.p1(), arrow->shaft.p2()}, point, mark.width / 2 + slack));
}

} // namespace

namespace Looks {
extern const Look arrow;
const Look arrow{draw, boxes, bounds, isNear};
} // namespace Looks

std::optional<ArrowShape> ArrowShape::of(const Annotation &mark)
{
    if (mark.points.isEmpty())
        return std::nullopt;
    const QPointF from = mark.first();
    const QPointF tip = mark.last();
    const QPointF way = tip - from;
    if (!(std::hypot(way.x(), way.y()) > shortest))
        return std::nullopt;
    const double head = std::max(mark.width * headFactor, smallestHead);
    const double angle = std::atan2(way.y(), way.x());
    return ArrowShape{
        {from, tip - towards(angle, head * shaftInHead)},
        QPolygonF{tip, tip - towards(angle - halfAngle, head), tip - towards(angle + halfAngle, head)}};
}
