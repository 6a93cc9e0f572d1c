#include "overlay/Annotation.h"

#include "base/Painting.h"
#include "base/Rect.h"
#include "overlay/ArrowShape.h"
#include "overlay/Pixelation.h"
#include "overlay/StrokePath.h"
#include "overlay/TextShape.h"

#include <algorithm>

using Painting::Saved;

namespace {

constexpr float markerAlpha = 0.35F;
constexpr float darkBelow = 0.35F;    // brightness of a colour that wants a light outline
constexpr double outlineShare = 0.03; // of the text's size

void drawPaths(QPainter &painter, const std::vector<QPainterPath> &paths, const QColor &color, double width)
{
    for (const QPainterPath &path : paths)
        painter.strokePath(path, QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

// Several paths as one translucent stroke, which must not darken where they
// meet or cross: first drawn in full, then laid over the ground as a whole.
void drawVeil(QPainter &painter, const std::vector<QPainterPath> &paths, const Annotation &mark,
              const QRectF &exposed)
{
    const QTransform toPixels = painter.combinedTransform();
    const QRect area = toPixels.mapRect(exposed).toAlignedRect();
    QImage layer(area.size(), QImage::Format_ARGB32_Premultiplied);
    if (layer.isNull())
        return;
    layer.fill(Qt::transparent);
    {
        QPainter onLayer(&layer);
        onLayer.setRenderHint(QPainter::Antialiasing);
        onLayer.setTransform(toPixels * QTransform::fromTranslate(-area.x(), -area.y()));
        drawPaths(onLayer, paths, mark.color, mark.strokeWidth());
    }
    painter.setWorldTransform(toPixels.inverted() * painter.worldTransform()); // to the device's own pixels
    painter.setOpacity(painter.opacity() * markerAlpha);
    painter.drawImage(area.topLeft(), layer);
}

void drawStroke(QPainter &painter, const Annotation &mark, const QRectF &exposed)
{
    const auto paths = StrokePath::visible(mark.points, mark.strokeWidth(), exposed);
    if (mark.tool == Tool::pencil)
        return drawPaths(painter, paths, mark.color, mark.strokeWidth());
    if (mark.points.size() > StrokePath::stepsInPath)
        return drawVeil(painter, paths, mark, exposed);
    QColor veil = mark.color;
    veil.setAlphaF(markerAlpha);
    drawPaths(painter, paths, veil, mark.strokeWidth());
}

void drawLine(QPainter &painter, const Annotation &mark)
{
    painter.setPen(QPen(mark.color, mark.width, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
    painter.drawLine(mark.points.value(0), mark.points.isEmpty() ? QPointF() : mark.points.last());
}

void drawArrow(QPainter &painter, const Annotation &mark)
{
    const auto arrow = ArrowShape::of(mark);
    if (!arrow)
        return;
    painter.setPen(QPen(mark.color, mark.width, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
    painter.drawLine(arrow->shaft);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mark.color);
    painter.drawPolygon(arrow->head);
}

void drawOutlined(QPainter &painter, const Annotation &mark)
{
    painter.setPen(QPen(mark.color, mark.width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    if (mark.tool == Tool::rectangle)
        painter.drawRect(mark.rectFromPoints());
    else
        painter.drawEllipse(mark.rectFromPoints());
}

bool isDark(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return rgb.isValid() && std::max({rgb.redF(), rgb.greenF(), rgb.blueF()}) < darkBelow;
}

// The outline keeps the text readable on any ground.
void drawText(QPainter &painter, const Annotation &mark)
{
    const QPainterPath glyphs = TextShape::path(mark);
    const QColor outline
        = isDark(mark.color) ? QColor::fromRgbF(1, 1, 1, 0.85F) : QColor::fromRgbF(0, 0, 0, 0.75F);
    painter.fillPath(glyphs, mark.color);
    painter.strokePath(
        glyphs, QPen(outline, mark.fontSize * outlineShare, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

} // namespace

void Annotation::draw(QPainter &painter, const QRectF &exposed) const
{
    const Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    switch (tool) {
    case Tool::pencil:
    case Tool::marker: return drawStroke(painter, *this, exposed);
    case Tool::line: return drawLine(painter, *this);
    case Tool::arrow: return drawArrow(painter, *this);
    case Tool::rectangle:
    case Tool::ellipse: return drawOutlined(painter, *this);
    case Tool::text: return drawText(painter, *this);
    case Tool::pixelate: return Pixelation::draw(painter, *this, exposed);
    }
}
