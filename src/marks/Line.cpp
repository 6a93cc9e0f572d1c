#include "base/Painting.h"
#include "marks/Annotation.h"
#include "marks/Reach.h"

// A straight line with round ends.
namespace {

void draw(QPainter &painter, const Annotation &mark, const QRectF &)
{
    const Painting::Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Painting::roundPen(mark.color, mark.width, Qt::MiterJoin));
    painter.drawLine(mark.first(), mark.last());
}

Look::Boxes boxes(const Annotation &mark)
{
    return Reach::along({mark.first(), mark.last()}, mark.width / 2);
}

QRectF bounds(const Annotation &mark) { return mark.rectFromPoints(); }

bool isNear(const Annotation &mark, QPointF point, double slack)
{
    return Reach::passes({mark.first(), mark.last()}, point, mark.width / 2 + slack);
}

} // namespace

namespace Looks {
extern const Look line;
const Look line{draw, boxes, bounds, isNear};
} // namespace Looks
