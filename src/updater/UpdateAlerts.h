#pragma once

#include <QCoroTask>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

// What the updater says to the user. Every alert is a window of its own that
// leaves the rest of the program alone.
namespace UpdateAlerts {

struct Alert {
    QString message;
    QString informative;
    QStringList buttons = {}; // the first is the default one; without any there is one to confirm
};

[[nodiscard]] Alert offer(const QString &version, const std::optional<QString> &notes,
                          const QString &current);
[[nodiscard]] Alert upToDate(const QString &current);
[[nodiscard]] Alert notSigned();
[[nodiscard]] Alert unreachable();
[[nodiscard]] Alert failed(const QString &message);

// Brings the program to the front and waits for the answer: whether it was the
// first button.
[[nodiscard]] QCoro::Task<bool> ask(Alert alert);

// Does nothing when none shows.
void bringToFront();

// For a while the key that confirms is not taken by the alert that shows: it is
// meant for something else.
void letReturnPass(std::chrono::milliseconds pause);

} // namespace UpdateAlerts
