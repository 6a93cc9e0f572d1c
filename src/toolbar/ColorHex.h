#pragma once

#include <QColor>
#include <QString>

// Returns a colour as a number sign and six upper-case hexadecimal digits of its
// sRGB components, such as "#FF3B30"; alpha is dropped. Two colours with the same
// text are the same colour to the program.
[[nodiscard]] QString hex(const QColor &color);
