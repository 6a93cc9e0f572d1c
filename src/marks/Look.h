#pragma once

#include <QPointF>
#include <QRectF>

#include <vector>

class QPainter;
struct Annotation;

// Tells how marks of one kind are drawn and which part of the view they touch.
// Everything is in view points, y upwards.
struct Look {
    using Boxes = std::vector<QRectF>;

    // Draws the mark, as far as it can show in the exposed part.
    void (*draw)(QPainter &painter, const Annotation &mark, const QRectF &exposed);
    // Returns boxes that together hold every pixel that draw() may touch.
    Boxes (*boxes)(const Annotation &mark);
    // Returns a rectangle round the mark's geometry, without the width of its lines.
    QRectF (*bounds)(const Annotation &mark);
    // Returns whether the point is on the mark, or beside it by at most so many points.
    bool (*isNear)(const Annotation &mark, QPointF point, double slack);
};
