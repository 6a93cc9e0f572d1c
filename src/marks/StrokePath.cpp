#include "marks/StrokePath.h"

#include "base/Painting.h"
#include "base/Rect.h"
#include "marks/Annotation.h"
#include "marks/Reach.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

using Painting::Saved;

namespace {

constexpr qsizetype stepsInPiece = 400;
constexpr float markerAlpha = 0.35F;
constexpr qsizetype pointsTogether = 24; // in one box

// A point without length has no direction to stroke in; a tiny step gives the
// round dot that the hand meant.
constexpr double dotStep = 0.01; // points

bool shows(QPointF a, QPointF b, const QRectF &reach)
{
    return std::max(a.x(), b.x()) >= minX(reach) && std::min(a.x(), b.x()) <= maxX(reach)
           && std::max(a.y(), b.y()) >= minY(reach) && std::min(a.y(), b.y()) <= maxY(reach);
}

// The steps of one piece that can show.
QPainterPath path(const QList<QPointF> &points, qsizetype piece, const QRectF &reach)
{
    const qsizetype first = piece * stepsInPiece;
    const qsizetype last = std::min(first + stepsInPiece, points.size() - 1);
    QPainterPath path;
    bool drawing = false;
    for (qsizetype i = first + 1; i <= last; ++i) {
        const QPointF from = points[i - 1];
        const QPointF to = points[i];
        if (!shows(from, to, reach)) {
            drawing = false;
            continue;
        }
        if (!drawing)
            path.moveTo(from);
        drawing = true;
        path.lineTo(from == to && i == 1 ? to + QPointF{dotStep, 0} : to);
    }
    return path;
}

void drawPieceIn(QPainter &painter, const Annotation &stroke, const QColor &color, qsizetype piece,
                 const QRectF &exposed)
{
    const QRectF reach = grown(exposed, stroke.strokeWidth() / 2 + 2).translated(-stroke.moved);
    const QPainterPath line = path(stroke.points, piece, reach);
    if (line.isEmpty())
        return;
    const Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(stroke.moved);
    painter.strokePath(line, Painting::roundPen(color, stroke.strokeWidth(), Qt::RoundJoin));
}

void drawPieces(QPainter &painter, const Annotation &stroke, const QRectF &exposed)
{
    for (qsizetype piece = 0; piece < StrokePath::pieces(stroke.points.size()); ++piece)
        StrokePath::drawPiece(painter, stroke, piece, exposed);
}

// Several pieces as one translucent stroke, which must not darken where they
// meet or cross: first drawn in full, then laid over the ground as a whole.
void drawVeil(QPainter &painter, const Annotation &stroke, const QRectF &exposed)
{
    const QTransform toPixels = painter.combinedTransform();
    const QRect area = toPixels.mapRect(exposed).toAlignedRect();
    QImage layer(area.size(), QImage::Format_ARGB32_Premultiplied);
    if (layer.isNull())
        return;
    layer.fill(Qt::transparent);
    {
        QPainter onLayer(&layer);
        onLayer.setTransform(toPixels * QTransform::fromTranslate(-area.x(), -area.y()));
        drawPieces(onLayer, stroke, exposed);
    }
    const Saved saved(painter);
    painter.setWorldTransform(toPixels.inverted() * painter.worldTransform()); // to the device's own pixels
    painter.setOpacity(painter.opacity() * StrokePath::opacity(stroke));
    painter.drawImage(area.topLeft(), layer);
}

Look::Boxes boxes(const Annotation &stroke)
{
    Look::Boxes boxes;
    for (qsizetype first = 0; first < stroke.points.size(); first += pointsTogether) {
        const QRectF box = Reach::boxOf(stroke.points.mid(first, pointsTogether + 1));
        boxes.push_back(Reach::spill(box.translated(stroke.moved), stroke.strokeWidth() / 2));
    }
    return boxes;
}

QRectF bounds(const Annotation &stroke) { return Reach::boxOf(stroke.points).translated(stroke.moved); }

bool isNear(const Annotation &stroke, QPointF point, double slack)
{
    return Reach::passes(stroke.points, point - stroke.moved, stroke.strokeWidth() / 2 + slack);
}

} // namespace

namespace Looks {
extern const Look stroke;
const Look stroke{StrokePath::draw, boxes, bounds, isNear};
} // namespace Looks

namespace StrokePath {

qsizetype pieces(qsizetype points) { return points < 2 ? 0 : pieceOf(points - 1) + 1; }

qsizetype pointsOf(qsizetype finishedPieces) { return finishedPieces * stepsInPiece + 1; }

qsizetype pieceOf(qsizetype point) { return std::max<qsizetype>(point - 1, 0) / stepsInPiece; }

void draw(QPainter &painter, const Annotation &stroke, const QRectF &exposed)
{
    if (stroke.tool == Tool::pencil)
        return drawPieces(painter, stroke, exposed);
    if (pieces(stroke.points.size()) > 1)
        return drawVeil(painter, stroke, exposed);
    QColor veil = stroke.color;
    veil.setAlphaF(markerAlpha);
    drawPieceIn(painter, stroke, veil, 0, exposed);
}

void drawPiece(QPainter &painter, const Annotation &stroke, qsizetype piece, const QRectF &exposed)
{
    drawPieceIn(painter, stroke, stroke.color, piece, exposed);
}

double opacity(const Annotation &stroke) { return stroke.tool == Tool::marker ? double(markerAlpha) : 1; }

} // namespace StrokePath
