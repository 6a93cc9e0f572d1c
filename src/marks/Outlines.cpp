#include "base/Painting.h"
#include "base/Rect.h"
#include "marks/Annotation.h"
#include "marks/Reach.h"

#include <cmath>
#include <numbers>

// Rectangles with sharp corners and ellipses inscribed in them.
namespace {

constexpr int ellipsePieces = 64;

void preparePainter(QPainter &painter, const Annotation &mark)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(mark.color, mark.width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
}

void drawRectangle(QPainter &painter, const Annotation &mark, const QRectF &)
{
    const Painting::Saved saved(painter);
    preparePainter(painter, mark);
    painter.drawRect(mark.rectFromPoints());
}

void drawEllipse(QPainter &painter, const Annotation &mark, const QRectF &)
{
    const Painting::Saved saved(painter);
    preparePainter(painter, mark);
    painter.drawEllipse(mark.rectFromPoints());
}

// A miter reaches further than half the line's width.
Look::Boxes boxesOfRectangle(const Annotation &mark)
{
    const QRectF r = mark.rectFromPoints();
    const QPolygonF corners{
        {minX(r), minY(r)}, {maxX(r), minY(r)}, {maxX(r), maxY(r)}, {minX(r), maxY(r)}, {minX(r), minY(r)}};
    return Reach::along(corners, mark.width / 2 * std::numbers::sqrt2);
}

// Along lines outside the oval, by less than its arcs bulge out between the points.
Look::Boxes boxesOfEllipse(const Annotation &mark)
{
    const QRectF r = mark.rectFromPoints();
    const double bulge = 1 / std::cos(std::numbers::pi / ellipsePieces);
    QPolygonF outline;
    for (int i = 0; i <= ellipsePieces; ++i) {
        const double angle = 2 * std::numbers::pi * i / ellipsePieces;
        outline << QPointF{midX(r) + bulge * r.width() / 2 * std::cos(angle),
                           midY(r) + bulge * r.height() / 2 * std::sin(angle)};
    }
    return Reach::along(outline, mark.width / 2);
}

QRectF bounds(const Annotation &mark) { return mark.rectFromPoints(); }

} // namespace

namespace Looks {
extern const Look rectangle, ellipse;
const Look rectangle{drawRectangle, boxesOfRectangle, bounds};
const Look ellipse{drawEllipse, boxesOfEllipse, bounds};
} // namespace Looks
