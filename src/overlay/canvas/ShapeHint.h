#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

struct Annotation;
class QPainter;

// The tip that teaches how strokes become shapes: after the first few freehand
// strokes, and never again once the user has found out. View points, y upwards.
namespace ShapeHint {

// At the end of a freehand stroke. Whether the tip is due.
[[nodiscard]] bool offerShapeHint(const Annotation &stroke, bool snapped);

// The bubble beside a point, kept inside the bounds.
[[nodiscard]] QRectF bubble(QPointF point, const QRectF &bounds);
// The same for a text of another size.
[[nodiscard]] QRectF bubble(QPointF point, QSizeF text, const QRectF &bounds);

void drawShapeHint(QPainter &painter, const QRectF &bubble);

} // namespace ShapeHint
