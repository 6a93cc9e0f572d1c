#pragma once

#include <QList>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>

#include <vector>

// The line of a freehand stroke.
namespace StrokePath {

inline constexpr qsizetype stepsInPath = 400;

// Only what can show inside the exposed part. A long stroke comes in several
// paths of that many steps, because the effort to fill one grows much faster than its length; where
// they are cut does not depend on the exposed part, so that screen and picture
// agree. Empty when the stroke has fewer than two points or shows nowhere.
[[nodiscard]] std::vector<QPainterPath> visible(const QList<QPointF> &points, double width,
                                                const QRectF &exposed);

} // namespace StrokePath
