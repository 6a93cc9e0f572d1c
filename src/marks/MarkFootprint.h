#pragma once

#include "marks/Look.h"

#include <QRectF>
#include <QRegion>

struct Annotation;
class ViewSpace;

// Which part of the screen a mark touches. A frame touches little of the screen
// it goes round, and only that little has to be repainted.
namespace MarkFootprint {

// Returns boxes that together hold all that the mark touches, in view points.
[[nodiscard]] Look::Boxes boxes(const Annotation &mark);
// Returns the same in widget points, y downwards, rounded outwards.
[[nodiscard]] QRegion of(const Annotation &mark, const ViewSpace &space);
// Returns only the end that a freehand stroke has last grown by.
[[nodiscard]] QRegion ofLastStep(const Annotation &stroke, const ViewSpace &space);

// A rectangle round all of the mark's geometry, in view points.
[[nodiscard]] QRectF bounds(const Annotation &mark);

} // namespace MarkFootprint
