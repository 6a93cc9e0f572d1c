#include "modes/Strip.h"

#include <QPainter>

QImage strip(const QList<QImage> &pictures)
{
    int width = 0;
    int height = 0;
    for (const QImage &each : pictures) {
        width += each.width();
        height = std::max(height, each.height());
    }
    QImage whole(width, height, QImage::Format_RGB32);
    whole.fill(Qt::black);
    QPainter painter(&whole);
    int x = 0;
    for (QImage each : pictures) {
        each.setDevicePixelRatio(1);
        painter.drawImage(x, 0, each);
        x += each.width();
    }
    return whole;
}
