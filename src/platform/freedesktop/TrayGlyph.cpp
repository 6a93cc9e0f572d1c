#include "platform/freedesktop/TrayGlyph.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace {

constexpr int iconSides[] = {16, 22, 24, 32, 44, 48, 64}; // device pixels
constexpr double rimOpacity = 0.35;

QPixmap tinted(QSvgRenderer &drawing, int side, const QColor &color)
{
    QPixmap glyph(side, side);
    glyph.fill(Qt::transparent);
    QPainter painter(&glyph);
    drawing.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(glyph.rect(), color);
    return glyph;
}

QPixmap withRim(const QPixmap &glyph, const QPixmap &rim)
{
    QPixmap picture(glyph.size());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(rimOpacity);
    for (const QPoint offset : {QPoint{-1, 0}, QPoint{1, 0}, QPoint{0, -1}, QPoint{0, 1}})
        painter.drawPixmap(offset, rim);
    painter.setOpacity(1);
    painter.drawPixmap(0, 0, glyph);
    return picture;
}

} // namespace

QIcon trayGlyph(PanelLook look)
{
    const QColor light(245, 245, 245);
    const QColor dark(45, 45, 48);
    const bool onDark = look == PanelLook::dark;
    QSvgRenderer drawing(QStringLiteral(":/vellumora/symbols/camera.viewfinder.svg"));
    QIcon icon;
    for (const int side : iconSides)
        icon.addPixmap(withRim(tinted(drawing, side, onDark ? light : dark),
                               tinted(drawing, side, onDark ? dark : light)));
    return icon;
}
