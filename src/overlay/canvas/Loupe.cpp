#include "overlay/canvas/Loupe.h"

#include "base/Fonts.h"
#include "base/Painting.h"
#include "base/PixelRows.h"
#include "base/Rect.h"
#include "overlay/canvas/ScreenPixels.h"
#include "toolbar/ColorHex.h"
#include "toolbar/Theme.h"

#include <QFontDatabase>
#include <QPainterPath>

#include <functional>

using Painting::Label;
using Painting::Saved;

namespace {

constexpr double diameter = Loupe::cells * Loupe::zoom; // points
constexpr double ring = 3;
constexpr double swatchSide = 10;
constexpr double swatchRadius = 2;
constexpr int readoutFontSize = 11;
constexpr double readoutRadius = 5;
constexpr double readoutPadding = 6; // from its left edge to the swatch
constexpr double readoutLift = 3;    // of the text, from its lower edge
constexpr double textFromLeft = 22;
constexpr double textFromRight = 8;
constexpr double readoutBelow = 14; // from the glass down to the text's top
constexpr double readoutAbove = 8;  // from the glass up
constexpr double lowest = 2;        // above the screen's lower edge
constexpr QSizeF reach{72, 106};    // of glass and readout, to each side of the point

constexpr double gridLine = 1;
constexpr double edgeLine = 2;
const QColor gridColor = QColor::fromRgbF(0.5F, 0.5F, 0.5F, 0.5F);

QRectF glass(QPointF at) { return squareAround(at, diameter); }

// The frozen pixels, each a square; what lies beyond the screen stays black.
void drawPixels(QPainter &painter, const ScreenShot &shot, const QRect &source, const QRectF &circle)
{
    const QRect inside = source & shot.image.rect();
    if (inside.isEmpty())
        return;
    const Saved saved(painter);
    painter.translate(minX(circle), maxY(circle));
    painter.scale(Loupe::zoom, -Loupe::zoom); // from here on one unit a pixel, rows downwards
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(QRectF(inside.translated(-source.topLeft())), PixelRows::part(shot.image, inside));
}

// Visible on any colour.
void drawMarker(QPainter &painter, const QRectF &cell)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor::fromRgbF(0, 0, 0, 0.8F), 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(grown(cell, 1.5));
    painter.setPen(QPen(Qt::white, 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(grown(cell, 0.5));
}

// Between the pixels, faint on any colour.
void drawGrid(QPainter &painter, const QRectF &circle)
{
    for (int i = 1; i < Loupe::cells; ++i) {
        const double along = i * Loupe::zoom;
        painter.fillRect(QRectF(minX(circle) + along, minY(circle), gridLine, diameter), gridColor);
        painter.fillRect(QRectF(minX(circle), minY(circle) + along, diameter, gridLine), gridColor);
    }
}

// What is not selected is dimmed as on the screen, up to a clear line.
void drawSelected(QPainter &painter, const QRect &selected, const QRect &source, const QRectF &circle)
{
    const QRectF shown{minX(circle) + (selected.left() - source.left()) * Loupe::zoom,
                       maxY(circle) - (selected.top() + selected.height() - source.top()) * Loupe::zoom,
                       selected.width() * Loupe::zoom, selected.height() * Loupe::zoom};
    QPainterPath outside;
    outside.addRect(circle);
    QPainterPath inside;
    inside.addRect(shown);
    painter.fillPath(outside - inside, Theme::scrim);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Theme::selectionBorder, edgeLine, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(shown);
}

// The pixels in the glass, and whatever is to be seen on them there.
void drawGlass(QPainter &painter, const ScreenShot &shot, QPointF at,
               const std::function<void(const QRect &source, const QRectF &circle)> &drawOnPixels)
{
    const Saved saved(painter);
    const QRectF circle = glass(at);
    const QRect source = ScreenPixels::pixelRect(shot, at, Loupe::cells / 2);
    {
        const Saved whole(painter);
        QPainterPath shape;
        shape.addEllipse(circle);
        painter.setClipPath(shape, Qt::IntersectClip);
        painter.fillRect(circle, Qt::black);
        drawPixels(painter, shot, source, circle);
        drawOnPixels(source, circle);
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, ring));
    painter.drawEllipse(circle);
}

void drawReadout(QPainter &painter, QPointF at, const QColor &color)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(readoutFontSize);
    font.setWeight(QFont::DemiBold);
    const Label label{.text = hex(color), .font = font};
    const QRectF badge = Loupe::badge(at, Painting::sizeOf(label));
    Painting::drawPanel(painter, badge, readoutRadius, Theme::badgeBackground);
    Painting::drawPanel(painter,
                        {minX(badge) + readoutPadding, midY(badge) - swatchSide / 2, swatchSide, swatchSide},
                        swatchRadius, color);
    Painting::drawText(painter, {minX(badge) + textFromLeft, minY(badge) + readoutLift}, label);
}

} // namespace

namespace Loupe {

void draw(QPainter &painter, const ScreenShot &shot, QPointF at)
{
    drawGlass(painter, shot, at, [&painter](const QRect &, const QRectF &circle) {
        drawMarker(painter, squareAround(circle.center(), zoom));
    });
    const Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    if (const auto color = ScreenPixels::pixelColor(shot, at))
        drawReadout(painter, at, *color);
}

void drawEdges(QPainter &painter, const ScreenShot &shot, QPointF at, const QRect &selected)
{
    drawGlass(painter, shot, at, [&painter, &selected](const QRect &source, const QRectF &circle) {
        drawGrid(painter, circle);
        drawSelected(painter, selected, source, circle);
    });
}

QRectF area(QPointF at) { return {at - QPointF(reach.width(), reach.height()), 2 * reach}; }

QRectF badge(QPointF at, QSizeF text)
{
    const QRectF circle = glass(at);
    const QSizeF size = text + QSizeF{textFromLeft + textFromRight, 2 * readoutLift};
    const double x = midX(circle) - size.width() / 2;
    const double below = minY(circle) - text.height() - readoutBelow;
    return {{x, below < lowest ? maxY(circle) + readoutAbove : below}, size};
}

} // namespace Loupe
