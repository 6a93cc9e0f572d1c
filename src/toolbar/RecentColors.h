#pragma once

#include <QColor>
#include <QList>

// Keeps the colours that the eyedropper picked last, newest first, between runs.
namespace RecentColors {

// Returns at most ten colours; stored entries that are not colours are skipped.
[[nodiscard]] QList<QColor> colors();
// Stores a colour at once. A colour that is already there moves to the front.
void add(const QColor &color);

} // namespace RecentColors
