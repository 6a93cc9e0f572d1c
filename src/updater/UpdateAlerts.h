#pragma once

#include <QString>
#include <QStringList>

#include <optional>

// Holds the words of what the updater says to the user.
namespace UpdateAlerts {

struct Alert {
    QString message;
    QString informative;
    QStringList buttons = {}; // the first is the default one; without any there is one to confirm
};

[[nodiscard]] Alert offer(const QString &version, const std::optional<QString> &notes,
                          const QString &current);
// Instead of the offer, where the system's package manager updates the program.
[[nodiscard]] Alert managed(const QString &version, const std::optional<QString> &notes,
                            const QString &current);
[[nodiscard]] Alert upToDate(const QString &current);
[[nodiscard]] Alert notSigned();
[[nodiscard]] Alert unreachable();
[[nodiscard]] Alert failed(const QString &message);

} // namespace UpdateAlerts
