#include "base/Painting.h"
#include "base/Rect.h"
#include "marks/Annotation.h"
#include "marks/Reach.h"

#include <cmath>
#include <numbers>

// Rectangles with sharp corners and ellipses inscribed in them.
namespace {

constexpr int ellipsePieces = 64;

// Where a shape is flat its outline turns back, and a miter would reach far beyond it: it
// ends where that of a right angle does, in widths of the line.
void preparePainter(QPainter &painter, const Annotation &mark, Qt::PenJoinStyle join)
{
    constexpr double rightAngle = 0.7072;
    QPen pen = Painting::roundPen(mark.color, mark.width, join);
    pen.setCapStyle(Qt::FlatCap);
    pen.setMiterLimit(rightAngle);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
}

void drawRectangle(QPainter &painter, const Annotation &mark, const QRectF &)
{
    const Painting::Saved saved(painter);
    preparePainter(painter, mark, Qt::MiterJoin);
    painter.drawRect(mark.rectFromPoints());
}

void drawEllipse(QPainter &painter, const Annotation &mark, const QRectF &)
{
    const Painting::Saved saved(painter);
    preparePainter(painter, mark, Qt::RoundJoin);
    painter.drawEllipse(mark.rectFromPoints());
}

QPolygonF corners(const QRectF &r)
{
    return {
        {minX(r), minY(r)}, {maxX(r), minY(r)}, {maxX(r), maxY(r)}, {minX(r), maxY(r)}, {minX(r), minY(r)}};
}

// The oval, enlarged by that factor, as straight lines.
QPolygonF oval(const QRectF &r, double factor)
{
    QPolygonF outline;
    for (int i = 0; i <= ellipsePieces; ++i) {
        const double angle = 2 * std::numbers::pi * i / ellipsePieces;
        outline << QPointF{midX(r) + factor * r.width() / 2 * std::cos(angle),
                           midY(r) + factor * r.height() / 2 * std::sin(angle)};
    }
    return outline;
}

// A miter reaches further than half the line's width.
Look::Boxes boxesOfRectangle(const Annotation &mark)
{
    return Reach::along(corners(mark.rectFromPoints()), mark.width / 2 * std::numbers::sqrt2);
}

// Along lines outside the oval, by less than its arcs bulge out between the points.
Look::Boxes boxesOfEllipse(const Annotation &mark)
{
    const double bulge = 1 / std::cos(std::numbers::pi / ellipsePieces);
    return Reach::along(oval(mark.rectFromPoints(), bulge), mark.width / 2);
}

QRectF bounds(const Annotation &mark) { return mark.rectFromPoints(); }

// Inside, the hand means what is framed, not the frame.
bool isNearRectangle(const Annotation &mark, QPointF point, double slack)
{
    return Reach::passes(corners(mark.rectFromPoints()), point, mark.width / 2 + slack);
}

bool isNearEllipse(const Annotation &mark, QPointF point, double slack)
{
    return Reach::passes(oval(mark.rectFromPoints(), 1), point, mark.width / 2 + slack);
}

} // namespace

namespace Looks {
extern const Look rectangle, ellipse;
const Look rectangle{drawRectangle, boxesOfRectangle, bounds, isNearRectangle};
const Look ellipse{drawEllipse, boxesOfEllipse, bounds, isNearEllipse};
} // namespace Looks
