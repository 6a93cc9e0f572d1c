#pragma once

#include <QFont>
#include <QPainterPath>
#include <QString>

struct Annotation;

// How a text mark is set: one line, from the point where its base line begins.
namespace TextShape {

[[nodiscard]] QFont font(double size); // points of the view
// The outlines of the glyphs in view space. A text longer than any screen is
// wide is cut off.
[[nodiscard]] QPainterPath path(const Annotation &mark);
// Of the whole line, in points.
[[nodiscard]] double width(const QString &text, double size);

// The size of a text written with this line width.
[[nodiscard]] double sizeFor(double lineWidth);

} // namespace TextShape
