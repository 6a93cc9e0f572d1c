#pragma once

#include <QColor>

class QPalette;

// The colours of texts beside the main one. Each is as close to what it is meant
// to be as the palette's background lets it be read: the contrast is 4.5 or more
// (WCAG 2.1, success criterion 1.4.3).
namespace LabelColors {

[[nodiscard]] QColor secondary(const QPalette &palette);
[[nodiscard]] QColor tertiary(const QPalette &palette);
[[nodiscard]] QColor refusal(const QPalette &palette);
[[nodiscard]] QColor link(const QPalette &palette);

// From 1 to 21 (WCAG 2.1, "contrast ratio").
[[nodiscard]] double contrast(const QColor &a, const QColor &b);

} // namespace LabelColors
