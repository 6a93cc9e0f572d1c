#pragma once

#include <QFont>

// The desktop's own interface font, its size in points of the view (which a
// screen's scale multiplies), not in typographic points.
namespace Fonts {

[[nodiscard]] QFont system(double size, QFont::Weight weight = QFont::Normal);

} // namespace Fonts
