#include "marks/MarkFootprint.h"

#include "base/ViewSpace.h"
#include "marks/Annotation.h"
#include "marks/Kinds.h"
#include "marks/Reach.h"

#include <algorithm>

namespace MarkFootprint {

Look::Boxes boxes(const Annotation &mark) { return kindOf(mark.tool).look.boxes(mark); }

QRegion of(const Annotation &mark, const ViewSpace &space)
{
    QRegion region;
    for (const QRectF &box : boxes(mark))
        region += space.around(box);
    return region;
}

QRegion ofLastStep(const Annotation &stroke, const ViewSpace &space)
{
    constexpr qsizetype touched = 3; // the new piece and the joint before it
    const QRectF end = Reach::boxOf(stroke.points.last(std::min(touched, stroke.points.size())));
    return space.around(Reach::spill(end.translated(stroke.moved), stroke.strokeWidth() / 2));
}

QRectF bounds(const Annotation &mark) { return kindOf(mark.tool).look.bounds(mark); }

} // namespace MarkFootprint
