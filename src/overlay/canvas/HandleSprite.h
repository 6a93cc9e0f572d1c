#pragma once

class QImage;

// The round handle with its soft shadow, as a picture that is made once per scale.
namespace HandleSprite {

// The picture reaches this far from the handle's centre, in points.
inline constexpr double reach = 9;

// Returns the picture, premultiplied, for so many pixels a point. Its sides are even, and the
// handle is in its middle.
[[nodiscard]] const QImage &picture(double scale);

} // namespace HandleSprite
