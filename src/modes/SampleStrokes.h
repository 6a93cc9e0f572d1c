#pragma once

#include <QList>
#include <QPointF>
#include <QStringList>

// A stroke for every shape that the recogniser knows, as an unsteady hand would
// draw it; always the same one.
namespace SampleStrokes {

// The recogniser's names.
[[nodiscard]] QStringList names();

// Round a middle, y downwards, about twice as wide as the radius; all in
// points. Empty for a name that is none.
[[nodiscard]] QList<QPointF> stroke(const QString &name, QPointF middle, double radius);

} // namespace SampleStrokes
