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

// One mark on the selection, in view points with y upwards. A finished mark is
// never changed, only replaced, so that whoever keeps a picture of it can tell
// by comparing whether the picture still holds.
struct Annotation {
    Annotation(Tool markTool, const QColor &markColor, double lineWidth, QList<QPointF> markPoints);

    Tool tool;
    QColor color;
    double width;          // points
    QList<QPointF> points; // a whole stroke, two corners, or where a text's base line begins
    QString text;
    double fontSize = 18;                   // points
    std::optional<QList<QPointF>> original; // the hand-drawn stroke that a shape has replaced
    // How far the mark has travelled with the selection since it was drawn, to
    // be added to every point. A stroke has thousands of them, and every step of
    // a selection that is moved takes all marks along.
    QPointF moved;

    bool operator==(const Annotation &) const = default;
    // The same mark, perhaps at another place.
    [[nodiscard]] bool looksLike(const Annotation &other) const;
    [[nodiscard]] Annotation movedBy(QPointF offset) const;

    // Where the mark begins and ends now; the origin when it has no points.
    [[nodiscard]] QPointF first() const { return points.value(0) + moved; }
    [[nodiscard]] QPointF last() const { return points.value(points.size() - 1) + moved; }
    // Spanned by the first and the last point; empty at the origin without points.
    [[nodiscard]] QRectF rectFromPoints() const;
    // What the stroke is as wide as on the screen; a marker's is wider than its
    // line width.
    [[nodiscard]] double strokeWidth() const;

    // The same for screen and picture. The painter's space is the view's; what
    // lies outside the exposed part may be left out.
    void draw(QPainter &painter, const QRectF &exposed) const;

    // What pixelation samples: the frozen screen of the overlay made last, in
    // device pixels.
    static inline QImage background;
    static inline double backgroundScale = 2; // pixels per point
    static inline double viewHeight = 0;      // points
};

using AnnotationPtr = std::shared_ptr<const Annotation>;
