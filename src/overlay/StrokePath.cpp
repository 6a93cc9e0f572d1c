#include "overlay/StrokePath.h"

#include "base/Rect.h"
#include "overlay/SelectionGeometry.h"

#include <algorithm>

namespace {

// A point without length has no direction to stroke in; a tiny step gives the
// round dot that the hand meant.
constexpr double dotStep = 0.01; // points

bool shows(QPointF a, QPointF b, const QRectF &reach)
{
    const QRectF box = SelectionGeometry::spanned(a, b);
    return maxX(box) >= minX(reach) && minX(box) <= maxX(reach) && maxY(box) >= minY(reach)
           && minY(box) <= maxY(reach);
}

// The steps from one point of the stroke to another.
QPainterPath between(const QList<QPointF> &points, qsizetype first, qsizetype last, const QRectF &reach)
{
    QPainterPath path;
    bool drawing = false;
    for (qsizetype i = first + 1; i <= last; ++i) {
        const QPointF from = points[i - 1];
        const QPointF to = points[i];
        if (!shows(from, to, reach)) {
            drawing = false;
            continue;
        }
        if (!drawing)
            path.moveTo(from);
        drawing = true;
        path.lineTo(from == to && i == 1 ? to + QPointF{dotStep, 0} : to);
    }
    return path;
}

} // namespace

namespace StrokePath {

std::vector<QPainterPath> visible(const QList<QPointF> &points, double width, const QRectF &exposed)
{
    const QRectF reach = grown(exposed, width / 2 + 2);
    std::vector<QPainterPath> paths;
    for (qsizetype first = 0; first + 1 < points.size(); first += stepsInPath) {
        const auto path = between(points, first, std::min(first + stepsInPath, points.size() - 1), reach);
        if (!path.isEmpty())
            paths.push_back(path);
    }
    return paths;
}

} // namespace StrokePath
