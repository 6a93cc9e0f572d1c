#include "overlay/Annotation.h"

Annotation::Annotation(Tool markTool, const QColor &markColor, double lineWidth, QList<QPointF> markPoints)
    : tool(markTool)
    , color(markColor)
    , width(lineWidth)
    , points(std::move(markPoints))
{}

void Annotation::moveBy(QPointF offset)
{
    for (QPointF &point : points)
        point += offset;
    if (!original)
        return;
    for (QPointF &point : *original)
        point += offset;
}
