#pragma once

#include "updater/UpdateAlerts.h"

#include <QCoroTask>
#include <QPointer>
#include <QTimer>

#include <chrono>

class QMessageBox;

// Shows the updater's alerts, one at a time. Every one is a window of its own that
// leaves the rest of the program alone.
class AlertBox {
public:
    AlertBox();

    // Brings the program to the front and waits for the answer; returns whether it
    // was the first button.
    [[nodiscard]] QCoro::Task<bool> ask(UpdateAlerts::Alert alert);

    // Does nothing when none shows.
    void bringToFront();

    // Keeps the alert that shows from taking the key that confirms for a while: it
    // is meant for something else.
    void letReturnPass(std::chrono::milliseconds pause);

private:
    QPointer<QMessageBox> m_shown;
    QTimer m_pause; // runs while it lets Return pass
};
