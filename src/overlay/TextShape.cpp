#include "overlay/TextShape.h"

#include "base/Fonts.h"
#include "overlay/Annotation.h"

#include <QFontMetricsF>
#include <QTransform>

namespace {

constexpr qsizetype mostCharacters = 4096; // beyond the edge of every screen

QString cut(const QString &text)
{
    if (text.size() <= mostCharacters)
        return text;
    const bool splitsPair = text.at(mostCharacters - 1).isHighSurrogate();
    return text.left(mostCharacters - (splitsPair ? 1 : 0));
}

} // namespace

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
