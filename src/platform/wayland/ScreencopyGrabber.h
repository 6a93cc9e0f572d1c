#pragma once

#include "platform/wayland/ScreenSource.h"

#include <memory>

class Connection;
class SharedBuffers;

// Has the compositor copy every output into shared memory, all at once, by the
// protocol that compositors built on wlroots offer.
class ScreencopyGrabber final : public ScreenSource {
public:
    explicit ScreencopyGrabber(std::shared_ptr<Connection> connection);

    [[nodiscard]] bool offered() const;
    QString name() const override;
    QCoro::Task<Result> grab() override;

private:
    std::shared_ptr<Connection> m_connection;
    std::shared_ptr<SharedBuffers> m_buffers;
};
