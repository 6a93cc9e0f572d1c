#pragma once

#include <QList>
#include <QPointF>
#include <QStringList>

// Provides a stroke for every shape that the recogniser knows, as an unsteady hand
// would draw it. A stroke is the same on every call.
namespace SampleStrokes {

// Returns the recogniser's names of the shapes.
[[nodiscard]] QStringList names();

// Returns a stroke round a middle, y downwards, about twice as wide as the radius,
// all in points. Empty for an unknown name.
[[nodiscard]] QList<QPointF> stroke(const QString &name, QPointF middle, double radius);

} // namespace SampleStrokes
