#pragma once

#include "marks/Tool.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <memory>
#include <optional>

class QPainter;

// Describes one mark on the selection, in view points with y upwards. A finished
// mark is never changed, only replaced, so comparing two marks tells whether a
// picture of the one still shows the other.
struct Annotation {
    Annotation(Tool markTool, const QColor &markColor, double lineWidth, QList<QPointF> markPoints);

    Tool tool;
    QColor color;
    double width;          // points
    QList<QPointF> points; // a whole stroke, two corners, or where a text's baseline begins
    QString text;
    double fontSize = 18;                   // points
    std::optional<QList<QPointF>> original; // the hand-drawn stroke that a shape has replaced
    // Distance that the mark has travelled with the selection since it was drawn;
    // it is added to every point. A stroke has thousands of points, and every step
    // of moving the selection moves all marks.
    QPointF moved;

    bool operator==(const Annotation &) const = default;
    // Returns whether both are the same mark, perhaps at different places.
    [[nodiscard]] bool looksLike(const Annotation &other) const;
    [[nodiscard]] Annotation movedBy(QPointF offset) const;

    // Return where the mark begins and ends now; the origin for a mark without
    // points.
    [[nodiscard]] QPointF first() const { return points.value(0) + moved; }
    [[nodiscard]] QPointF last() const { return points.value(points.size() - 1) + moved; }
    // Returns the rectangle between the first and the last point; empty at the
    // origin when there are no points.
    [[nodiscard]] QRectF rectFromPoints() const;
    // Returns the width of the drawn stroke in points. A marker's stroke is wider
    // than its line width.
    [[nodiscard]] double strokeWidth() const;

    // Draws the mark in the same way for the screen and for the picture. The
    // painter's space is the view's; parts outside the exposed rectangle may be
    // left out.
    void draw(QPainter &painter, const QRectF &exposed) const;

    // Pixelation samples this picture: the frozen screen of the overlay created
    // last, in device pixels.
    static inline QImage background;
    static inline double backgroundScale = 2; // pixels per point
    static inline double viewHeight = 0;      // points
};

using AnnotationPtr = std::shared_ptr<const Annotation>;
