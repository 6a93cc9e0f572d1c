#include "marks/TextShape.h"

#include "base/Fonts.h"
#include "base/Painting.h"
#include "base/Rect.h"
#include "marks/Annotation.h"
#include "marks/Reach.h"

#include <QFontMetricsF>
#include <QTransform>

#include <algorithm>

namespace {

constexpr qsizetype mostCharacters = 4096; // beyond the edge of every screen
constexpr float darkBelow = 0.35F;         // brightness of a colour that wants a light outline
constexpr double outlineShare = 0.03;      // of the text's size

QString cut(const QString &text)
{
    if (text.size() <= mostCharacters)
        return text;
    const bool splitsPair = text.at(mostCharacters - 1).isHighSurrogate();
    return text.left(mostCharacters - (splitsPair ? 1 : 0));
}

bool isDark(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return rgb.isValid() && std::max({rgb.redF(), rgb.greenF(), rgb.blueF()}) < darkBelow;
}

// The outline keeps the text readable on any ground.
void draw(QPainter &painter, const Annotation &mark, const QRectF &)
{
    const Painting::Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath glyphs = TextShape::path(mark);
    const QColor outline
        = isDark(mark.color) ? QColor::fromRgbF(1, 1, 1, 0.85F) : QColor::fromRgbF(0, 0, 0, 0.75F);
    painter.fillPath(glyphs, mark.color);
    painter.strokePath(
        glyphs, QPen(outline, mark.fontSize * outlineShare, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

QRectF bounds(const Annotation &mark) { return Reach::boxOf(TextShape::path(mark).boundingRect()); }

Look::Boxes boxes(const Annotation &mark) { return {Reach::spill(bounds(mark), 0)}; }

// Between its letters, too.
bool isNear(const Annotation &mark, QPointF point, double slack)
{
    const QRectF box = bounds(mark);
    return !box.isEmpty() && grown(box, slack).contains(point);
}

} // namespace

namespace Looks {
extern const Look text;
const Look text{draw, boxes, bounds, isNear};
} // namespace Looks

namespace TextShape {

QFont font(double size)
{
    QFont font = Fonts::system(size, QFont::DemiBold);
    // The same widths at every scale, so that the picture shows what the screen showed.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QPainterPath path(const Annotation &mark)
{
    QPainterPath glyphs;
    if (mark.text.isEmpty())
        return glyphs;
    glyphs.addText(QPointF{0, 0}, font(mark.fontSize), cut(mark.text));
    glyphs.setFillRule(Qt::WindingFill);
    const QPointF origin = mark.first();
    return QTransform(1, 0, 0, -1, origin.x(), origin.y()).map(glyphs);
}

double width(const QString &text, double size)
{
    return QFontMetricsF(font(size)).horizontalAdvance(cut(text));
}

double sizeFor(double lineWidth) { return 2 * lineWidth + 12; }

} // namespace TextShape
