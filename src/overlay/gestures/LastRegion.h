#pragma once

#include <QRectF>
#include <QString>

#include <optional>

// Remembers for the life of the process which part of each screen was selected last:
// its numbers, nothing of what was to be seen there. Screens go by their names, since
// they may be gone before their overlays are. In view points, y upwards.
namespace LastRegion {

void remember(const QString &screen, const QRectF &region);

// Returns that region, moved and cut to the bounds as they are now; absent when
// nothing has been selected on that screen.
[[nodiscard]] std::optional<QRectF> on(const QString &screen, const QRectF &bounds);

} // namespace LastRegion
