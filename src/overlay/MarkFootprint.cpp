#include "overlay/MarkFootprint.h"

#include "base/Rect.h"
#include "base/ViewSpace.h"
#include "overlay/Annotation.h"
#include "overlay/ArrowShape.h"
#include "overlay/SelectionGeometry.h"
#include "overlay/TextShape.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double antialiasing = 2; // points that a soft edge may spill over
constexpr double pieceLength = 64; // points; longer pieces cover ground beside a slanting line
constexpr int mostPieces = 48;     // a line; more cost more than the ground they spare
constexpr int ellipsePieces = 64;
constexpr int pointsTogether = 24; // of a freehand stroke

QRegion spill(const QRectF &box, double by, const ViewSpace &space)
{
    return space.toWidget(grown(box, by + antialiasing)).toAlignedRect();
}

QRectF boxOf(const QPolygonF &points)
{
    const QRectF box = points.boundingRect();
    return {box.topLeft(), box.size()};
}

QRegion alongLine(QPointF from, QPointF to, double reach, const ViewSpace &space)
{
    const double length = std::hypot(to.x() - from.x(), to.y() - from.y());
    const int pieces = std::clamp(static_cast<int>(std::min(length / pieceLength, 1e6)), 1, mostPieces);
    QRegion region;
    for (int i = 0; i < pieces; ++i)
        region += spill(SelectionGeometry::spanned(from + (to - from) * i / pieces,
                                                   from + (to - from) * (i + 1) / pieces),
                        reach, space);
    return region;
}

QRegion along(const QPolygonF &outline, double reach, const ViewSpace &space)
{
    QRegion region;
    for (qsizetype i = 1; i < outline.size(); ++i)
        region += alongLine(outline[i - 1], outline[i], reach, space);
    return region;
}

QPolygonF corners(const QRectF &r)
{
    return QPolygonF{
        {minX(r), minY(r)}, {maxX(r), minY(r)}, {maxX(r), maxY(r)}, {minX(r), maxY(r)}, {minX(r), minY(r)}};
}

// Outside the oval by less than its arcs bulge out between the points.
QPolygonF aroundEllipse(const QRectF &r)
{
    const double bulge = 1 / std::cos(std::numbers::pi / ellipsePieces);
    QPolygonF outline;
    for (int i = 0; i <= ellipsePieces; ++i) {
        const double angle = 2 * std::numbers::pi * i / ellipsePieces;
        outline << QPointF{midX(r) + bulge * r.width() / 2 * std::cos(angle),
                           midY(r) + bulge * r.height() / 2 * std::sin(angle)};
    }
    return outline;
}

QRegion ofStroke(const Annotation &stroke, const ViewSpace &space)
{
    QRegion region;
    for (qsizetype first = 0; first < stroke.points.size(); first += pointsTogether)
        region += spill(boxOf(QPolygonF(stroke.points.mid(first, pointsTogether + 1))),
                        stroke.strokeWidth() / 2, space);
    return region;
}

QRegion ofArrow(const Annotation &mark, const ViewSpace &space)
{
    const auto arrow = ArrowShape::of(mark);
    if (!arrow)
        return {};
    return alongLine(arrow->shaft.p1(), arrow->shaft.p2(), mark.width / 2, space)
           + spill(boxOf(arrow->head), 0, space);
}

// A miter reaches further than half the line's width.
double cornerReach(const Annotation &mark) { return mark.width / 2 * std::numbers::sqrt2; }

} // namespace

namespace MarkFootprint {

QRegion of(const Annotation &mark, const ViewSpace &space)
{
    switch (mark.tool) {
    case Tool::pencil:
    case Tool::marker: return ofStroke(mark, space);
    case Tool::line: return along(QPolygonF(mark.points), mark.width / 2, space);
    case Tool::arrow: return ofArrow(mark, space);
    case Tool::rectangle: return along(corners(mark.rectFromPoints()), cornerReach(mark), space);
    case Tool::ellipse: return along(aroundEllipse(mark.rectFromPoints()), mark.width / 2, space);
    case Tool::text:
    case Tool::pixelate: return spill(bounds(mark), 0, space);
    }
    Q_UNREACHABLE();
}

QRegion ofLastStep(const Annotation &stroke, const ViewSpace &space)
{
    constexpr qsizetype touched = 3; // the new piece and the joint before it
    const auto end = QPolygonF(stroke.points.last(std::min(touched, stroke.points.size())));
    return spill(boxOf(end), stroke.strokeWidth() / 2, space);
}

QRectF bounds(const Annotation &mark)
{
    if (mark.tool == Tool::text)
        return boxOf(QPolygonF(TextShape::path(mark).boundingRect()));
    if (mark.tool == Tool::arrow) {
        const auto arrow = ArrowShape::of(mark);
        return arrow ? boxOf(arrow->head + QPolygonF{arrow->shaft.p1()}) : QRectF();
    }
    return boxOf(QPolygonF(mark.points));
}

} // namespace MarkFootprint
