#include "overlay/gestures/LastRegion.h"

#include "marks/SelectionGeometry.h"

#include <QHash>
#include <QScreen>

namespace {

// By the screen's name: the object is another one after the screen was unplugged.
QHash<QString, QRectF> &regions()
{
    static QHash<QString, QRectF> all;
    return all;
}

QString nameOf(const QScreen *screen) { return screen ? screen->name() : QString(); }

} // namespace

namespace LastRegion {

void remember(const QScreen *screen, const QRectF &region) { regions().insert(nameOf(screen), region); }

std::optional<QRectF> on(const QScreen *screen, const QRectF &bounds)
{
    const auto found = regions().constFind(nameOf(screen));
    if (found == regions().constEnd())
        return std::nullopt;
    const QRectF fitting(found->topLeft(), found->size().boundedTo(bounds.size()));
    return SelectionGeometry::moved(fitting, {0, 0}, bounds);
}

} // namespace LastRegion
