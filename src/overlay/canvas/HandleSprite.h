#pragma once

#include <QPointF>

class QPainter;

// Draws the round handle with its soft shadow, from a picture that is made once per
// scale.
namespace HandleSprite {

// The picture reaches this far from the handle's centre, in points.
inline constexpr double reach = 9;

// Draws the handle round a point of the painter's space, aligned with whole pixels
// of the device, which has so many of them per point.
void draw(QPainter &painter, QPointF centre, double scale);

} // namespace HandleSprite
