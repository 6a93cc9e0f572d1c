#pragma once

#include <QFont>
#include <QPainterPath>
#include <QString>

struct Annotation;

// Lays out a text mark: one line, which starts where its baseline begins.
namespace TextShape {

[[nodiscard]] QFont font(double size); // points of the view
// Returns the outlines of the glyphs in view space. A text that is wider than any
// screen is cut off.
[[nodiscard]] QPainterPath path(const Annotation &mark);
// Returns the width of the whole line in points.
[[nodiscard]] double width(const QString &text, double size);

// Returns the font size, in points, that goes with a line width.
[[nodiscard]] double sizeFor(double lineWidth);

} // namespace TextShape
