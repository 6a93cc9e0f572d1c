#pragma once

#include "platform/freedesktop/TrayHost.h"

#include <QDBusServiceWatcher>

// The tray of newer panels, a service on the session bus.
class StatusNotifierHost final : public TrayHost {
public:
    StatusNotifierHost();

    bool present() const override;

private:
    QDBusServiceWatcher m_watcher;
};
