#pragma once

#include "platform/wayland/CopyGrabber.h"

// By the protocol that desktops have agreed upon: ext-image-copy-capture.
class ExtCopyGrabber final : public CopyGrabber {
public:
    explicit ExtCopyGrabber(std::shared_ptr<Connection> connection);

    QString name() const override;

private:
    std::unique_ptr<CopyProtocol> bind(const Connection &connection) const override;
};
