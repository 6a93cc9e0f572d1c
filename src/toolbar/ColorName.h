#pragma once

#include <QColor>
#include <QString>

// Returns what people call a colour, in the interface language.
[[nodiscard]] QString colorName(const QColor &color);

// Returns the name, and what sets the colour apart from others of that name, such as
// "Blue, #0A85FF".
[[nodiscard]] QString spokenColor(const QColor &color);
