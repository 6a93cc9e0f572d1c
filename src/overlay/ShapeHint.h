#pragma once

#include <QDeadlineTimer>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

struct Annotation;
class QPainter;

// The tip that teaches how strokes become shapes: after the first few freehand
// strokes, and never again once the user has found out. View points, y upwards.
class ShapeHint {
public:
    // At the end of a freehand stroke. Whether the tip shows now.
    [[nodiscard]] bool offerShapeHint(const Annotation &stroke, bool snapped);

    [[nodiscard]] bool shows() const { return !m_until.hasExpired(); }
    void drawShapeHint(QPainter &painter, const QRectF &bounds) const;
    // All that drawShapeHint() may touch, also when it does not show any more.
    [[nodiscard]] QRectF area(const QRectF &bounds) const;

    // The bubble beside a point, kept inside the bounds.
    [[nodiscard]] static QRectF bubble(QPointF point, QSizeF text, const QRectF &bounds);

private:
    QPointF m_point;
    QDeadlineTimer m_until{0};
};
