#pragma once

#include <QColor>
#include <QList>

// The colours that the eyedropper picked last, newest first, kept between runs.
namespace RecentColors {

// Returns at most ten; entries that are not colours are passed over.
[[nodiscard]] QList<QColor> colors();
// Stores a colour at once. One that is there already moves to the front.
void add(const QColor &color);

} // namespace RecentColors
