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

using Boxes = MarkFootprint::Boxes;

QRectF spill(const QRectF &box, double by) { return grown(box, by + antialiasing); }

QRectF boxOf(const QPolygonF &points)
{
    const QRectF box = points.boundingRect();
    return {box.topLeft(), box.size()};
}

void addLine(Boxes &boxes, QPointF from, QPointF to, double reach)
{
    const double length = std::hypot(to.x() - from.x(), to.y() - from.y());
    const int pieces = std::clamp(static_cast<int>(std::min(length / pieceLength, 1e6)), 1, mostPieces);
    for (int i = 0; i < pieces; ++i)
        boxes.push_back(spill(SelectionGeometry::spanned(from + (to - from) * i / pieces,
                                                         from + (to - from) * (i + 1) / pieces),
                              reach));
}

Boxes along(const QPolygonF &outline, double reach)
{
    Boxes boxes;
    for (qsizetype i = 1; i < outline.size(); ++i)
        addLine(boxes, outline[i - 1], outline[i], reach);
    return boxes;
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

Boxes ofStroke(const Annotation &stroke)
{
    Boxes boxes;
    for (qsizetype first = 0; first < stroke.points.size(); first += pointsTogether)
        boxes.push_back(
            spill(boxOf(QPolygonF(stroke.points.mid(first, pointsTogether + 1))), stroke.strokeWidth() / 2)
                .translated(stroke.moved));
    return boxes;
}

Boxes ofArrow(const Annotation &mark)
{
    const auto arrow = ArrowShape::of(mark);
    if (!arrow)
        return {};
    Boxes boxes{spill(boxOf(arrow->head), 0)};
    addLine(boxes, arrow->shaft.p1(), arrow->shaft.p2(), mark.width / 2);
    return boxes;
}

// A miter reaches further than half the line's width.
double cornerReach(const Annotation &mark) { return mark.width / 2 * std::numbers::sqrt2; }

} // namespace

namespace MarkFootprint {

Boxes boxes(const Annotation &mark)
{
    switch (mark.tool) {
    case Tool::pencil:
    case Tool::marker: return ofStroke(mark);
    case Tool::line: return along({mark.first(), mark.last()}, mark.width / 2);
    case Tool::arrow: return ofArrow(mark);
    case Tool::rectangle: return along(corners(mark.rectFromPoints()), cornerReach(mark));
    case Tool::ellipse: return along(aroundEllipse(mark.rectFromPoints()), mark.width / 2);
    case Tool::text:
    case Tool::pixelate: return {spill(bounds(mark), 0)};
    }
    Q_UNREACHABLE();
}

QRegion of(const Annotation &mark, const ViewSpace &space)
{
    QRegion region;
    for (const QRectF &box : boxes(mark))
        region += space.toWidget(box).toAlignedRect();
    return region;
}

QRegion ofLastStep(const Annotation &stroke, const ViewSpace &space)
{
    constexpr qsizetype touched = 3; // the new piece and the joint before it
    const auto end = QPolygonF(stroke.points.last(std::min(touched, stroke.points.size())));
    return space.toWidget(spill(boxOf(end).translated(stroke.moved), stroke.strokeWidth() / 2))
        .toAlignedRect();
}

QRectF bounds(const Annotation &mark)
{
    if (mark.tool == Tool::text)
        return boxOf(QPolygonF(TextShape::path(mark).boundingRect()));
    if (mark.tool == Tool::arrow) {
        const auto arrow = ArrowShape::of(mark);
        return arrow ? boxOf(arrow->head + QPolygonF{arrow->shaft.p1()}) : QRectF();
    }
    return boxOf(QPolygonF(mark.points)).translated(mark.moved);
}

} // namespace MarkFootprint
