#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

struct Annotation;
class QPainter;

// Shows the tip that teaches how strokes become shapes: after the first few
// freehand strokes, and never again once the user has found out. Everything is in
// view points, y upwards.
namespace ShapeHint {

// Returns whether the tip is due at the end of a freehand stroke, and counts how
// often it has been shown.
[[nodiscard]] bool offerShapeHint(const Annotation &stroke, bool snapped);

// Returns the place of the bubble beside a point, kept inside the bounds.
[[nodiscard]] QRectF bubble(QPointF point, const QRectF &bounds);
// Returns the place of a bubble for a text of the given size.
[[nodiscard]] QRectF bubble(QPointF point, QSizeF text, const QRectF &bounds);

void drawShapeHint(QPainter &painter, const QRectF &bubble);

} // namespace ShapeHint
