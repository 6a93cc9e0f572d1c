#pragma once

#include <QImage>

// Draws screens of 3840 × 2160 pixels as people have them, opaque and the same on
// every run.
namespace ScreenPictures {

// Shows wallpaper, a panel and several windows full of text in many sizes.
[[nodiscard]] QImage desktop();
// Shows one editor from edge to edge, with coloured text on a dark ground.
[[nodiscard]] QImage editor();
// Shows the desktop with a photograph over its left half.
[[nodiscard]] QImage photo();
// Shows windows in front of a photograph as it is stored in a file, enlarged to the
// screen.
[[nodiscard]] QImage wallpaper();
// Shows noise in which nothing repeats: the worst case rather than a real screen.
[[nodiscard]] QImage noise();

} // namespace ScreenPictures
