#pragma once

#include <QFont>

namespace Fonts {

// Returns the desktop's own interface font. The size is in view points, which a
// screen's scale multiplies, not in typographic points.
[[nodiscard]] QFont system(double size, QFont::Weight weight = QFont::Normal);

// Returns how many times larger than usual the desktop wants its text; 1 where it
// wants it as usual or smaller.
[[nodiscard]] double enlargement();

// Returns the same font for a window, in which text may grow as the desktop wants.
[[nodiscard]] inline QFont window(double size, QFont::Weight weight = QFont::Normal)
{
    return system(size * enlargement(), weight);
}

} // namespace Fonts
