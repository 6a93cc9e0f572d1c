#pragma once

#include "overlay/Tool.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <memory>
#include <optional>

class QPainter;

// One mark on the selection, in view points with y upwards. Marks are shared:
// the list, the stroke being drawn and the shape that replaces it all point at
// the same one.
struct Annotation {
    Annotation(Tool markTool, const QColor &markColor, double lineWidth, QList<QPointF> markPoints);

    const Tool tool;
    QColor color;
    double width;          // points
    QList<QPointF> points; // a whole stroke, two corners, or where a text's base line begins
    QString text;
    double fontSize = 18;                   // points
    std::optional<QList<QPointF>> original; // the hand-drawn stroke that a shape has replaced

    // Spanned by the first and the last point; a missing one counts as the
    // origin.
    [[nodiscard]] QRectF rectFromPoints() const;
    // What the stroke is as wide as on the screen; a marker's is wider than its
    // line width.
    [[nodiscard]] double strokeWidth() const;
    void moveBy(QPointF offset);

    // The same for screen and picture. The painter's space is the view's; what
    // lies outside the exposed part may be left out.
    void draw(QPainter &painter, const QRectF &exposed) const;

    // What pixelation samples: the frozen screen of the overlay made last, in
    // device pixels.
    static inline QImage background;
    static inline double backgroundScale = 2; // pixels per point
    static inline double viewHeight = 0;      // points
};

using AnnotationPtr = std::shared_ptr<Annotation>;
