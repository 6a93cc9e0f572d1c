#pragma once

#include <QColor>

class QPalette;

// Provides the colours of texts other than the main one. Each is as close to the
// intended colour as legibility on the palette's background allows: the contrast is
// 4.5 or more (WCAG 2.1, success criterion 1.4.3).
namespace LabelColors {

[[nodiscard]] QColor secondary(const QPalette &palette);
[[nodiscard]] QColor tertiary(const QPalette &palette);
[[nodiscard]] QColor refusal(const QPalette &palette);
[[nodiscard]] QColor link(const QPalette &palette);

// Returns the colour that a style which darkens the window's for its frames should
// start from. On a window that is almost black they would be invisible.
[[nodiscard]] QColor frame(const QPalette &palette);

// Returns the contrast ratio of two colours, from 1 to 21 (WCAG 2.1, "contrast
// ratio").
[[nodiscard]] double contrast(const QColor &a, const QColor &b);

} // namespace LabelColors
