#pragma once

#include "platform/wayland/ScreenSource.h"

#include <chrono>
#include <memory>

class Connection;

// Asks the desktop's portal for a picture of the whole desktop and cuts the screens
// out of it. Slow, and not always exact, but every desktop has it.
class PortalGrabber final : public ScreenSource {
public:
    // Waits so long for the portal to start and for the user to decide.
    explicit PortalGrabber(std::shared_ptr<Connection> connection,
                           std::chrono::milliseconds patience = std::chrono::seconds(30));

    QString name() const override;
    QCoro::Task<Result> grab() override;

private:
    std::shared_ptr<Connection> m_connection;
    const std::chrono::milliseconds m_patience;
};
