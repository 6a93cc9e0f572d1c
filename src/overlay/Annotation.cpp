#include "overlay/Annotation.h"

#include "overlay/SelectionGeometry.h"

#include <algorithm>

namespace {

constexpr double markerFactor = 5;
constexpr double widestMarker = 120; // points

} // namespace

Annotation::Annotation(Tool markTool, const QColor &markColor, double lineWidth, QList<QPointF> markPoints)
    : tool(markTool)
    , color(markColor)
    , width(lineWidth)
    , points(std::move(markPoints))
{}

QRectF Annotation::rectFromPoints() const
{
    return points.isEmpty() ? QRectF(0, 0, 0, 0) : SelectionGeometry::spanned(points.first(), points.last());
}

double Annotation::strokeWidth() const
{
    return tool == Tool::marker ? std::min(width * markerFactor, widestMarker) : width;
}

void Annotation::moveBy(QPointF offset)
{
    for (QPointF &point : points)
        point += offset;
    if (!original)
        return;
    for (QPointF &point : *original)
        point += offset;
}
