#include "overlay/canvas/ShapeHint.h"

#include "base/Defaults.h"
#include "base/Fonts.h"
#include "base/Painting.h"
#include "base/Rect.h"
#include "l10n/L10n.h"
#include "marks/Annotation.h"
#include "toolbar/Theme.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr int knowsTheGesture = 99;
constexpr int shownAtMost = 3;     // times
constexpr qsizetype shortest = 12; // points of a stroke that the tip would have helped
constexpr double fontSize = 12;    // points
constexpr double margin = 4;       // from the edge of the screen

Painting::Label label()
{
    return {.text = L10n::t(u"Truco: deja el ratón quieto medio segundo y se hace figura perfecta"),
            .font = Fonts::system(fontSize, QFont::Medium)};
}

// Its pictures are of the glow alone.
bool testsTheGlow() { return QCoreApplication::arguments().contains(QStringLiteral("--prueba-halo")); }

} // namespace

namespace ShapeHint {

bool offerShapeHint(const Annotation &stroke, bool snapped)
{
    if (testsTheGlow())
        return false;
    if (snapped) {
        Defaults::setValue(Defaults::shapeTipKey, knowsTheGesture);
        return false;
    }
    const int times = Defaults::value(Defaults::shapeTipKey).toInt();
    if (stroke.points.size() < shortest || times >= shownAtMost)
        return false;
    Defaults::setValue(Defaults::shapeTipKey, times + 1);
    return true;
}

QRectF bubble(QPointF point, const QRectF &bounds)
{
    return bubble(point, Painting::sizeOf(label()), bounds);
}

QRectF bubble(QPointF point, QSizeF text, const QRectF &bounds)
{
    QRectF bubble(point.x() + 16, point.y() - text.height() - 22, text.width() + 24, text.height() + 10);
    if (maxX(bubble) > maxX(bounds) - margin)
        bubble.moveLeft(point.x() - 16 - bubble.width());
    if (minY(bubble) < minY(bounds) + margin)
        bubble.moveTop(point.y() + 16);
    bubble.moveLeft(std::max(minX(bubble), minX(bounds) + margin));
    return bubble;
}

void drawShapeHint(QPainter &painter, const QRectF &bubble)
{
    Painting::drawPill(painter, bubble, Theme::barBackground, Theme::barBorder);
    Painting::drawText(painter, {minX(bubble) + 12, minY(bubble) + 5}, label());
}

} // namespace ShapeHint
