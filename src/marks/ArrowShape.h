#pragma once

#include <QLineF>
#include <QPolygonF>

#include <optional>

struct Annotation;

// The geometry of an arrow, in view points.
struct ArrowShape {
    QLineF shaft;   // ends inside the head, so that its round end does not show at the tip
    QPolygonF head; // the tip first

    // Absent when the arrow is too short to have a direction.
    [[nodiscard]] static std::optional<ArrowShape> of(const Annotation &mark);
};
