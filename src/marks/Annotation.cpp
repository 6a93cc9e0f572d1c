#include "marks/Annotation.h"

#include "base/Rect.h"

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

bool Annotation::looksLike(const Annotation &other) const { return movedBy(other.moved - moved) == other; }

Annotation Annotation::movedBy(QPointF offset) const
{
    Annotation copy = *this;
    copy.moved += offset;
    return copy;
}

QRectF Annotation::rectFromPoints() const
{
    return points.isEmpty() ? QRectF(0, 0, 0, 0) : spanned(first(), last());
}

double Annotation::strokeWidth() const
{
    return tool == Tool::marker ? std::min(width * markerFactor, widestMarker) : width;
}
