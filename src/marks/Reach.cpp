#include "marks/Reach.h"

#include "base/Rect.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double antialiasing = 2; // points that a soft edge may spill over
constexpr double pieceLength = 64; // points; longer pieces cover ground beside a slanting line
constexpr int mostPieces = 48;     // a line; more cost more than the ground they spare

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

} // namespace Reach
