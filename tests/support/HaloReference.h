#pragma once

#include "halo/HaloBand.h"
#include "halo/HaloColors.h"
#include "halo/HaloMotion.h"

#include <QConicalGradient>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

// Draws the glow with Qt, stroke by stroke: slow, but obviously right. The image
// counts in device pixels.
inline void drawReferenceHalo(QImage &onto, const HaloBand::Shape &shape, double turn)
{
    const QRectF &rect = shape.selection;
    QConicalGradient gradient(rect.center(), 90 + 360 * turn);
    for (std::size_t i = 0; i < HaloColors::colors.size(); ++i) {
        const auto &[red, green, blue] = HaloColors::colors[i];
        gradient.setColorAt(double(i) / double(HaloColors::colors.size() - 1),
                            QColor::fromRgbF(float(red), float(green), float(blue)));
    }
    const auto stroke = [&](QPainter &painter, const QRectF &outline, double width, Qt::PenJoinStyle join) {
        painter.setPen(QPen(gradient, width, Qt::SolidLine, Qt::FlatCap, join));
        painter.drawRect(outline);
    };

    QImage glow(onto.size(), QImage::Format_ARGB32_Premultiplied);
    glow.fill(Qt::transparent);
    {
        QPainter painter(&glow);
        painter.setRenderHint(QPainter::Antialiasing);
        QRectF outline(QPointF(), rect.size() * shape.swell);
        outline.moveCenter(rect.center());
        for (const auto &[width, alpha] : HaloBand::rings) {
            painter.setOpacity(alpha);
            stroke(painter, outline, width * shape.scale * shape.swell * shape.swell, Qt::RoundJoin);
        }
    }
    QPainter painter(&onto);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outside;
    outside.addRect(onto.rect());
    outside.addRect(shape.hole);
    painter.setClipPath(outside);
    painter.setOpacity(shape.opacity);
    painter.drawImage(0, 0, glow);
    painter.setOpacity(1);
    const double line = HaloBand::lineWidth * shape.scale;
    stroke(painter, rect.adjusted(-line / 2, -line / 2, line / 2, line / 2), line, Qt::MiterJoin);
}
