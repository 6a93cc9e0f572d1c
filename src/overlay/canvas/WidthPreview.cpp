#include "overlay/canvas/WidthPreview.h"

#include "base/Fonts.h"
#include "base/Painting.h"
#include "base/Rect.h"
#include "marks/TextShape.h"
#include "toolbar/Theme.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

using Painting::Label;

namespace {

constexpr double besidePointer = 22; // points, as are the following
constexpr double fromEdge = 4;
constexpr double cornerRadius = 12;
constexpr double numberSpace = 34;
constexpr double numberFromEdge = 14;
constexpr double numberSize = 12;
constexpr int waveSteps = 24;
constexpr double waveHeight = 0.28;  // of the sample's height
constexpr double arrowExtent = 6;    // widths of the line
constexpr double strokeExtent = 2.4; // widths of the stroke
constexpr double panelPadding = 44;  // added to the sample's extent
constexpr double lowestPanel = 84;
constexpr double highestPanel = 260;
constexpr double sampleMargin = 8; // besides half the line's width
constexpr double leastMargin = 12;
constexpr double frameInset = 0.12; // of the sample's height

// There is no width to a mosaic; it is sampled as a stroke.
Tool sampled(const EditorState &state)
{
    const Tool tool = state.tool.value_or(Tool::pencil);
    return tool == Tool::pixelate ? Tool::pencil : tool;
}

double extent(const EditorState &state)
{
    if (sampled(state) == Tool::arrow)
        return arrowExtent * state.lineWidth;
    return strokeExtent * Annotation(sampled(state), state.color, state.lineWidth, {}).strokeWidth();
}

double panelHeight(double extent) { return std::clamp(extent + panelPadding, lowestPanel, highestPanel); }

QList<QPointF> wave(const QRectF &box, double amplitude)
{
    QList<QPointF> points;
    for (int i = 0; i <= waveSteps; ++i) {
        const double t = double(i) / waveSteps;
        points.append({minX(box) + t * box.width(),
                       midY(box) + std::sin(2 * std::numbers::pi * t) * box.height() * amplitude});
    }
    return points;
}

QList<QPointF> samplePoints(Tool tool, const QRectF &box)
{
    switch (tool) {
    case Tool::marker: return wave(box, 0);
    case Tool::line:
    case Tool::arrow: return {{minX(box), minY(box)}, {maxX(box), maxY(box)}};
    case Tool::rectangle:
    case Tool::ellipse:
        return {{minX(box), minY(box) + frameInset * box.height()},
                {maxX(box), maxY(box) - frameInset * box.height()}};
    default: return wave(box, waveHeight);
    }
}

Annotation textSample(const EditorState &state, const QRectF &box)
{
    Annotation sample(Tool::text, state.color, state.lineWidth, {{0, 0}});
    sample.text = QStringLiteral("Aa");
    sample.fontSize = TextShape::sizeFor(state.lineWidth);
    const QRectF glyphs = TextShape::path(sample).boundingRect();
    sample.points = {box.center() - glyphs.center()};
    return sample;
}

Annotation sample(const EditorState &state, const QRectF &box)
{
    const Tool tool = sampled(state);
    if (tool == Tool::text)
        return textSample(state, box);
    return {tool, state.color, state.lineWidth, samplePoints(tool, box)};
}

// The square that the sample is drawn in, in the middle of what the number
// leaves free.
QRectF sampleBox(const EditorState &state, const QRectF &panel)
{
    const double margin = std::max(state.lineWidth / 2 + sampleMargin, leastMargin);
    const QPointF middle{minX(panel) + (panel.width() - numberSpace) / 2, midY(panel)};
    return squareAround(middle, panel.height() - 2 * margin);
}

void drawNumber(QPainter &painter, double width, const QRectF &panel)
{
    const Label label{.text = QString::number(static_cast<int>(width)),
                      .font = Fonts::system(numberSize, QFont::DemiBold),
                      .digits = Painting::Digits::sameWidth};
    const QSizeF size = Painting::sizeOf(label);
    Painting::drawText(painter,
                       {maxX(panel) - numberFromEdge - size.width(), midY(panel) - size.height() / 2}, label);
}

} // namespace

namespace WidthPreview {

void draw(QPainter &painter, const EditorState &state, QPointF pointer)
{
    const QRectF place = panel(state, pointer);
    Painting::drawPanel(painter, place, cornerRadius, Theme::barBackground, Theme::barBorder);
    const Painting::Saved saved(painter);
    QPainterPath shape;
    shape.addRoundedRect(place, cornerRadius, cornerRadius);
    painter.setClipPath(shape, Qt::IntersectClip);
    sample(state, sampleBox(state, place)).draw(painter, place);
    drawNumber(painter, state.lineWidth, place);
}

QRectF panel(const EditorState &state, QPointF pointer)
{
    const double height = panelHeight(extent(state));
    const double width = height + extent(state) + numberSpace;
    const QRectF room = grown(state.bounds, -fromEdge);
    double x = pointer.x() + besidePointer;
    if (x + width > maxX(room))
        x = pointer.x() - besidePointer - width;
    x = std::max(std::min(x, maxX(room) - width), minX(room));
    const double y = std::max(std::min(pointer.y() - height / 2, maxY(room) - height), minY(room));
    return {x, y, width, height};
}

} // namespace WidthPreview
