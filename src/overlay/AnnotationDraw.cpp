#include "overlay/Annotation.h"

#include "base/Painting.h"
#include "overlay/ArrowShape.h"
#include "overlay/Pixelation.h"
#include "overlay/StrokePath.h"
#include "overlay/TextShape.h"

#include <algorithm>

using Painting::Saved;

namespace {

constexpr float darkBelow = 0.35F;    // brightness of a colour that wants a light outline
constexpr double outlineShare = 0.03; // of the text's size

void drawLine(QPainter &painter, const Annotation &mark)
{
    painter.setPen(QPen(mark.color, mark.width, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
    painter.drawLine(mark.first(), mark.last());
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
    case Tool::marker: return StrokePath::draw(painter, *this, exposed);
    case Tool::line: return drawLine(painter, *this);
    case Tool::arrow: return drawArrow(painter, *this);
    case Tool::rectangle:
    case Tool::ellipse: return drawOutlined(painter, *this);
    case Tool::text: return drawText(painter, *this);
    case Tool::pixelate: return Pixelation::draw(painter, *this, exposed);
    }
}
