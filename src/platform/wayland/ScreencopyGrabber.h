#pragma once

#include "platform/wayland/CopyGrabber.h"

// By the protocol that compositors built on wlroots have offered from the beginning.
class ScreencopyGrabber final : public CopyGrabber {
public:
    explicit ScreencopyGrabber(std::shared_ptr<Connection> connection);

    QString name() const override;

private:
    std::unique_ptr<CopyProtocol> bind(const Connection &connection) const override;
};
