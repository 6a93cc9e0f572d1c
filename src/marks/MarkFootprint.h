#pragma once

#include "marks/Look.h"

#include <QRectF>
#include <QRegion>

struct Annotation;
class ViewSpace;

// Computes which part of the screen a mark touches. A rectangle's outline touches
// little of the area that it encloses, and only that little has to be repainted.
namespace MarkFootprint {

// Returns boxes that together hold every pixel that the mark touches, in view
// points.
[[nodiscard]] Look::Boxes boxes(const Annotation &mark);
// Returns the region that the mark touches, in widget points, y downwards, rounded
// outwards.
[[nodiscard]] QRegion of(const Annotation &mark, const ViewSpace &space);
// Returns the region that the end of a freehand stroke touches, to which the last
// point was added, in widget points, y downwards.
[[nodiscard]] QRegion ofLastStep(const Annotation &stroke, const ViewSpace &space);

// Returns a rectangle round the mark's geometry, without the width of its lines, in
// view points.
[[nodiscard]] QRectF bounds(const Annotation &mark);

} // namespace MarkFootprint
