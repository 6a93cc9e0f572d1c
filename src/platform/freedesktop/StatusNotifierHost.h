#pragma once

#include "platform/freedesktop/TrayHost.h"

#include <QDBusServiceWatcher>

// Finds the tray of newer panels, which is a service on the session bus.
class StatusNotifierHost final : public TrayHost {
public:
    StatusNotifierHost();

    bool present() const override;

private:
    QDBusServiceWatcher m_watcher;
};
