#pragma once

#include "overlay/Tool.h"

#include <QColor>
#include <QList>
#include <QPointF>
#include <QString>

#include <memory>
#include <optional>

// One mark on the selection, in view points. Marks are shared: the list, the
// stroke being drawn and the shape that replaces it all point at the same one.
struct Annotation {
    Annotation(Tool markTool, const QColor &markColor, double lineWidth, QList<QPointF> markPoints);

    const Tool tool;
    QColor color;
    double width;          // points
    QList<QPointF> points; // a whole stroke, two corners, or the origin of a text
    QString text;
    double fontSize = 18;                   // points
    std::optional<QList<QPointF>> original; // the hand-drawn stroke that a shape has replaced

    void moveBy(QPointF offset);
};

using AnnotationPtr = std::shared_ptr<Annotation>;
