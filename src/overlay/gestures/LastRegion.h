#pragma once

#include <QRectF>

#include <optional>

class QScreen;

// Remembers for the life of the process which part of each screen was selected last:
// its numbers, nothing of what was to be seen there. In view points, y upwards.
namespace LastRegion {

void remember(const QScreen *screen, const QRectF &region);

// Returns that region, moved and cut to the bounds as they are now; absent when
// nothing has been selected on that screen.
[[nodiscard]] std::optional<QRectF> on(const QScreen *screen, const QRectF &bounds);

} // namespace LastRegion
