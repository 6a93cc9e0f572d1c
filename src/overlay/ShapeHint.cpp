#include "overlay/ShapeHint.h"

#include "base/Defaults.h"
#include "base/Fonts.h"
#include "base/Painting.h"
#include "base/Rect.h"
#include "l10n/L10n.h"
#include "overlay/Annotation.h"
#include "toolbar/Theme.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr int knowsTheGesture = 99;
constexpr int shownAtMost = 3;     // times
constexpr qsizetype shortest = 12; // points of a stroke that the tip would have helped
constexpr auto lasts = 3s;
constexpr double fontSize = 12; // points
constexpr double margin = 4;    // from the edge of the screen

Painting::Label label()
{
    return {.text = L10n::t(u"Truco: deja el ratón quieto medio segundo y se hace figura perfecta"),
            .font = Fonts::system(fontSize, QFont::Medium)};
}

// Its pictures are of the glow alone.
bool testsTheGlow() { return QCoreApplication::arguments().contains(QStringLiteral("--prueba-halo")); }

} // namespace

bool ShapeHint::offerShapeHint(const Annotation &stroke, bool snapped)
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
    m_point = stroke.points.last();
    m_until.setRemainingTime(lasts);
    return true;
}

QRectF ShapeHint::bubble(QPointF point, QSizeF text, const QRectF &bounds)
{
    QRectF bubble(point.x() + 16, point.y() - text.height() - 22, text.width() + 24, text.height() + 10);
    if (maxX(bubble) > maxX(bounds) - margin)
        bubble.moveLeft(point.x() - 16 - bubble.width());
    if (minY(bubble) < minY(bounds) + margin)
        bubble.moveTop(point.y() + 16);
    bubble.moveLeft(std::max(minX(bubble), minX(bounds) + margin));
    return bubble;
}

QRectF ShapeHint::area(const QRectF &bounds) const
{
    return bubble(m_point, Painting::sizeOf(label()), bounds);
}

void ShapeHint::drawShapeHint(QPainter &painter, const QRectF &bounds) const
{
    if (!shows())
        return;
    const QRectF pill = area(bounds);
    Painting::drawPill(painter, pill, Theme::barBackground, Theme::barBorder);
    Painting::drawText(painter, {minX(pill) + 12, minY(pill) + 5}, label());
}
