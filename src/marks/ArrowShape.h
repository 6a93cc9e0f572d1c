#pragma once

#include <QLineF>
#include <QPolygonF>

#include <optional>

struct Annotation;

// Holds the geometry of an arrow, in view points.
struct ArrowShape {
    QLineF shaft;   // ends inside the head, so that its round end does not show at the tip
    QPolygonF head; // the tip first

    // Returns the shape of the arrow; absent when it is too short to have a
    // direction.
    [[nodiscard]] static std::optional<ArrowShape> of(const Annotation &mark);
};
