#include "overlay/gestures/LastRegion.h"

#include "marks/SelectionGeometry.h"

#include <QHash>

namespace {

QHash<QString, QRectF> &regions()
{
    static QHash<QString, QRectF> all;
    return all;
}

} // namespace

namespace LastRegion {

void remember(const QString &screen, const QRectF &region) { regions().insert(screen, region); }

std::optional<QRectF> on(const QString &screen, const QRectF &bounds)
{
    const auto found = regions().constFind(screen);
    if (found == regions().constEnd())
        return std::nullopt;
    const QRectF fitting(found->topLeft(), found->size().boundedTo(bounds.size()));
    return SelectionGeometry::moved(fitting, {0, 0}, bounds);
}

} // namespace LastRegion
