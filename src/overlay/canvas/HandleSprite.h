#pragma once

#include <QPointF>

class QPainter;

// The round handle with its soft shadow, drawn once a scale.
namespace HandleSprite {

// How far the picture reaches from the handle's centre, in points.
inline constexpr double reach = 9;

// Draws the handle round a point of the painter's space. Its pixels fall on
// whole pixels of the device, which has that many of them a point.
void draw(QPainter &painter, QPointF centre, double scale);

} // namespace HandleSprite
