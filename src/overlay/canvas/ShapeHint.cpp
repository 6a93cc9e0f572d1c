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
constexpr double away = 16;        // from the end of the stroke
constexpr double below = 22;       // from there down to the text's top
constexpr QSizeF padding{12, 5};   // on each side of the text

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
    QRectF bubble(QPointF(point.x() + away, point.y() - text.height() - below), text + 2 * padding);
    if (maxX(bubble) > maxX(bounds) - margin)
        bubble.moveLeft(point.x() - away - bubble.width());
    if (minY(bubble) < minY(bounds) + margin)
        bubble.moveTop(point.y() + away);
    bubble.moveLeft(std::max(minX(bubble), minX(bounds) + margin));
    return bubble;
}

void drawShapeHint(QPainter &painter, const QRectF &bubble)
{
    Painting::drawPill(painter, bubble, Theme::barBackground, Theme::barBorder);
    Painting::drawText(painter, bubble.topLeft() + QPointF(padding.width(), padding.height()), label());
}

} // namespace ShapeHint
