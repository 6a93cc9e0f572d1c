#pragma once

#include <QFont>

namespace Fonts {

// Returns the desktop's own interface font. The size is in view points, which a
// screen's scale multiplies, not in typographic points.
[[nodiscard]] QFont system(double size, QFont::Weight weight = QFont::Normal);

} // namespace Fonts
