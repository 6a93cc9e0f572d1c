#include "platform/x11/Desk.h"

#include <QScreen>

// Qt's own rectangle is rounded to points, so the monitor's is asked for first.
QRect Desk::place(const QScreen &screen) const
{
    const QRect area = screen.geometry();
    const QRect guess(area.topLeft(), (QSizeF(area.size()) * screen.devicePixelRatio()).toSize());
    return monitors.value(screen.name(), guess) & root;
}
