#include "marks/Reach.h"

#include "base/Rect.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double antialiasing = 2; // points that a soft edge may spill over
constexpr double pieceLength = 64; // points; longer pieces cover ground beside a slanting line
constexpr int mostPieces = 48;     // a line; more cost more than the ground they spare

double distance(QPointF from, QPointF to, QPointF point)
{
    const QPointF way = to - from;
    const double square = QPointF::dotProduct(way, way);
    const double share = square > 0 ? QPointF::dotProduct(point - from, way) / square : 0;
    const QPointF off = from + way * std::clamp(share, 0.0, 1.0) - point;
    return std::hypot(off.x(), off.y());
}

} // namespace

namespace Reach {

QRectF spill(const QRectF &box, double by) { return grown(box, by + antialiasing); }

QRectF boxOf(const QPolygonF &points)
{
    const QRectF box = points.boundingRect();
    return {box.topLeft(), box.size()};
}

void addLine(Look::Boxes &boxes, QPointF from, QPointF to, double reach)
{
    const double length = std::hypot(to.x() - from.x(), to.y() - from.y());
    const int pieces = std::clamp(static_cast<int>(std::min(length / pieceLength, 1e6)), 1, mostPieces);
    for (int i = 0; i < pieces; ++i)
        boxes.push_back(
            spill(spanned(from + (to - from) * i / pieces, from + (to - from) * (i + 1) / pieces), reach));
}

Look::Boxes along(const QPolygonF &outline, double reach)
{
    Look::Boxes boxes;
    for (qsizetype i = 1; i < outline.size(); ++i)
        addLine(boxes, outline[i - 1], outline[i], reach);
    return boxes;
}

bool passes(const QPolygonF &outline, QPointF point, double away)
{
    for (qsizetype i = 1; i < outline.size(); ++i) {
        const QPointF a = outline[i - 1];
        const QPointF b = outline[i];
        // A stroke has thousands of steps, nearly all of them elsewhere.
        const bool elsewhere
            = std::min(a.x(), b.x()) > point.x() + away || std::max(a.x(), b.x()) < point.x() - away
              || std::min(a.y(), b.y()) > point.y() + away || std::max(a.y(), b.y()) < point.y() - away;
        if (!elsewhere && distance(a, b, point) <= away)
            return true;
    }
    return false;
}

} // namespace Reach
