#pragma once

#include <QImage>
#include <QRect>
#include <QRectF>

class QPainter;
struct Annotation;

// A mosaic of the frozen screen, not of the marks above it.
namespace Pixelation {

// The exposed part, in the painter's view points. Nothing for a mark that is too
// small, or off the frozen screen.
void draw(QPainter &painter, const Annotation &mark, const QRectF &exposed);

// How many device pixels of the screen one block stands for at a scale.
[[nodiscard]] int blockSide(double scale);

// The mosaic of a part of a picture in device pixels, one pixel a block; null
// when the part lies outside the picture.
[[nodiscard]] QImage mosaic(const QImage &picture, const QRect &part, double scale);

} // namespace Pixelation
