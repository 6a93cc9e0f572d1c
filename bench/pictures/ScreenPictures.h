#pragma once

#include <QImage>

// Screens of 3840 × 2160 pixels as people have them, opaque and the same on every run.
namespace ScreenPictures {

// Wallpaper, a panel and several windows full of text in many sizes.
[[nodiscard]] QImage desktop();
// One editor from edge to edge, coloured text on dark.
[[nodiscard]] QImage editor();
// The desktop with a photograph over its left half.
[[nodiscard]] QImage photo();
// Windows before a photograph as a file keeps it, enlarged to the screen.
[[nodiscard]] QImage wallpaper();
// Nothing repeats: the worst case, not a screen.
[[nodiscard]] QImage noise();

} // namespace ScreenPictures
