#pragma once

#include <QString>
#include <QVariant>

// The forms in which the portal speaks of shortcuts.
namespace PortalShortcuts {

// What this program's only one is called.
inline const QString id = QStringLiteral("capturar");

// Returns the list with that one and the keys to propose for it, which may be empty.
[[nodiscard]] QVariant proposal(const QString &trigger);

// Returns how the desktop describes the keys that it has bound to it; empty when that
// is nothing, or not a list of shortcuts.
[[nodiscard]] QString keysIn(const QVariant &shortcuts);

// Returns the path of the session that was created; empty when there is none.
[[nodiscard]] QString sessionIn(const QVariantMap &results);

} // namespace PortalShortcuts
