#include "toolbar/BarButtonPaint.h"

#include "base/Fonts.h"
#include "base/Painting.h"
#include "base/Rect.h"
#include "toolbar/BarLayout.h"
#include "toolbar/PixelGrid.h"
#include "toolbar/Symbols.h"
#include "toolbar/Theme.h"

#include <QLinearGradient>
#include <QPainterPath>

#include <cmath>
#include <numbers>

using Painting::Label;
using Painting::Saved;

namespace {

// All in points.
constexpr double radius = 10;
constexpr double symbolSize = 15;
constexpr double symbolSlot = 16; // the room of a symbol before a label
constexpr double inset = 12;      // before and behind the content of a primary button
constexpr double afterSymbol = 7;
constexpr double afterLabel = 8;
constexpr QSizeF capsulePadding{10, 4}; // both sides together
constexpr double capsuleRadius = 5;
constexpr double monoSize = 11.5;
constexpr double monoEnlarged = 2; // which makes it a whole number
constexpr double swatchInset = 10;
constexpr double swatchSide = 14;
constexpr double swatchRing = 2.5; // from the swatch to the ring around it
constexpr double afterSwatch = 9;
constexpr double dotSide = 4;
constexpr double dotFromBottom = 2;
constexpr double gradientAngle = 20 * std::numbers::pi / 180; // radians, rising to the right

constexpr float pressedActiveAlpha = 0.26F;
constexpr double titleSize = 13; // points
constexpr double keySize = 11;

const QColor clear = QColor::fromRgbF(1, 1, 1, 0);

QColor white(float alpha) { return QColor::fromRgbF(1, 1, 1, alpha); }

// Every button uses the same fonts; asking the desktop for them each time would
// show in the time that a frame takes.
const QFont &titleFont()
{
    static const QFont font = Fonts::system(titleSize, QFont::DemiBold);
    return font;
}

const QFont &keyFont()
{
    static const QFont font = Fonts::system(keySize, QFont::DemiBold);
    return font;
}

const QFont &monoFont()
{
    static const QFont font = Fonts::system(monoSize * monoEnlarged, QFont::DemiBold);
    return font;
}

Label title(const QString &text) { return {.text = text, .font = titleFont()}; }
Label hint(const QString &text) { return {.text = text, .font = keyFont(), .color = white(0.92F)}; }

Label widthText(const BarButtonState &state)
{
    return {.text = state.widthLabel.value_or(QString()),
            .font = monoFont(),
            .color = state.hovering ? Theme::iconHover : Theme::icon,
            .digits = Painting::Digits::sameWidth,
            .enlarged = monoEnlarged};
}

void drawCentredText(QPainter &painter, double x, const QRectF &bounds, const Label &label)
{
    Painting::drawTextDownwards(painter, {x, midY(bounds) - Painting::sizeOf(label).height() / 2}, label);
}

void drawBackground(QPainter &painter, const QRectF &bounds, const BarButtonState &state, const QColor &color)
{
    const bool bordered = state.isActive && !state.isPrimary;
    if (color.alpha() > 0 || bordered)
        Painting::drawPanel(painter, PixelGrid::snapped(painter, bounds), radius, color,
                            bordered ? Theme::barBorder : QColor());
}

void drawSwatch(QPainter &painter, const QRectF &bounds, const BarButtonState &state)
{
    const QRectF dot{minX(bounds) + swatchInset, midY(bounds) - swatchSide / 2, swatchSide, swatchSide};
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(white(0.9F), 1.5));
    painter.drawEllipse(grown(dot, swatchRing));
    painter.setPen(Qt::NoPen);
    painter.setBrush(*state.swatch);
    painter.drawEllipse(dot);
    painter.setPen(QPen(white(0.25F), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(grown(dot, -0.5));
    if (state.widthLabel)
        drawCentredText(painter, maxX(dot) + afterSwatch, bounds, widthText(state));
}

void drawGlyph(QPainter &painter, const QRectF &bounds, const BarButtonState &state)
{
    Symbols::draw(painter, bounds.center(), {state.symbol, symbolSize, BarButtonPaint::tint(state)});
    if (!state.isActive || !state.dotColor)
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(*state.dotColor);
    painter.drawEllipse(
        QRectF{midX(bounds) - dotSide / 2, maxY(bounds) - dotFromBottom - dotSide, dotSide, dotSide});
}

// Reaches from corner to corner at its angle, whatever the shape of the button.
QLinearGradient primaryFill(const QRectF &bounds)
{
    const QPointF direction{std::cos(gradientAngle), -std::sin(gradientAngle)};
    const double length = bounds.width() * direction.x() - bounds.height() * direction.y();
    QLinearGradient gradient(bounds.center() - direction * length / 2,
                             bounds.center() + direction * length / 2);
    for (std::size_t i = 0; i < Theme::primaryGradient.size(); ++i)
        gradient.setColorAt(static_cast<double>(i) / (Theme::primaryGradient.size() - 1),
                            Theme::primaryGradient[i]);
    return gradient;
}

// Strongest along the middle line, gone at the top.
QLinearGradient gloss(const QRectF &upperHalf)
{
    QLinearGradient gradient(0, maxY(upperHalf), 0, minY(upperHalf));
    gradient.setColorAt(0, white(0.24F));
    gradient.setColorAt(1, white(0));
    return gradient;
}

QColor shade(const BarButtonState &state)
{
    if (state.pressed)
        return QColor::fromRgbF(0, 0, 0, 0.16F);
    return state.hovering ? white(0.08F) : clear;
}

// Each layer fills the same rounded shape, cut off where need be: a clip along
// the shape itself would not be antialiased.
void drawPrimaryGround(QPainter &painter, const QRectF &bounds, const BarButtonState &state)
{
    const QRectF box = PixelGrid::snapped(painter, bounds);
    QPainterPath shape;
    shape.addRoundedRect(box, radius, radius);
    painter.fillPath(shape, primaryFill(box));
    const QRectF upperHalf{box.topLeft(), QSizeF{box.width(), box.height() / 2}};
    painter.save();
    painter.setClipRect(upperHalf, Qt::IntersectClip);
    painter.fillPath(shape, gloss(upperHalf));
    painter.restore();
    painter.fillPath(shape, shade(state));
}

void drawKeyHint(QPainter &painter, double x, const QRectF &bounds, const Label &label)
{
    const QSizeF size = Painting::sizeOf(label) + capsulePadding;
    const QRectF capsule{{x, midY(bounds) - size.height() / 2}, size};
    Painting::drawPanel(painter, capsule, capsuleRadius, white(0.2F));
    drawCentredText(painter, x + capsulePadding.width() / 2, bounds, label);
}

void drawPrimary(QPainter &painter, const QRectF &bounds, const BarButtonState &state)
{
    drawPrimaryGround(painter, bounds, state);
    double x = state.label ? minX(bounds) + inset : midX(bounds) - symbolSlot / 2;
    Symbols::draw(painter, {x + symbolSlot / 2, midY(bounds)}, {state.symbol, symbolSize, Qt::white});
    x += symbolSlot + afterSymbol;
    if (state.label) {
        drawCentredText(painter, x, bounds, title(*state.label));
        x += Painting::sizeOf(title(*state.label)).width() + afterLabel;
    }
    if (state.keyHint)
        drawKeyHint(painter, x, bounds, hint(*state.keyHint));
}

double hintRoom(const BarButtonState &state)
{
    return state.keyHint
               ? Painting::sizeOf(hint(*state.keyHint)).width() + capsulePadding.width() + afterLabel
               : 0;
}

} // namespace

namespace BarButtonPaint {

QColor fill(const BarButtonState &state)
{
    if (state.isPrimary)
        return clear;
    if (state.isActive)
        return state.pressed ? white(pressedActiveAlpha) : Theme::activeFill;
    if (state.pressed)
        return Theme::pressFill;
    return state.hovering ? Theme::hoverFill : clear;
}

QColor tint(const BarButtonState &state)
{
    return state.isActive || state.isPrimary || state.hovering ? Theme::iconHover : Theme::icon;
}

double preferredWidth(const BarButtonState &state)
{
    if (state.isPrimary && state.label)
        return inset + symbolSlot + afterSymbol + Painting::sizeOf(title(*state.label)).width()
               + hintRoom(state) + inset;
    if (state.swatch && state.widthLabel)
        return swatchInset + swatchSide + afterSwatch + Painting::sizeOf(widthText(state)).width()
               + swatchInset;
    return BarLayout::buttonSide;
}

void draw(QPainter &painter, const QRectF &bounds, const BarButtonState &state, const QColor &background)
{
    const Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBackground(painter, bounds, state, background);
    if (state.isPrimary)
        drawPrimary(painter, bounds, state);
    else if (state.swatch)
        drawSwatch(painter, bounds, state);
    else
        drawGlyph(painter, bounds, state);
}

} // namespace BarButtonPaint
