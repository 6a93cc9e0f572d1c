#pragma once

#include "platform/wayland/ScreenSource.h"

#include <memory>

class Connection;
class CopyProtocol;
class SharedBuffers;
struct wl_interface;

// Has the compositor copy every output into shared memory, all at once, by one of the
// protocols there are for it.
class CopyGrabber : public ScreenSource {
public:
    // Whether the compositor knows the protocol.
    [[nodiscard]] bool offered() const;
    QCoro::Task<Result> grab() final;

protected:
    // The protocol begins with these globals.
    CopyGrabber(std::shared_ptr<Connection> connection, std::vector<const wl_interface *> globals);

    [[nodiscard]] virtual std::unique_ptr<CopyProtocol> bind(const Connection &connection) const = 0;

private:
    std::shared_ptr<Connection> m_connection;
    std::vector<const wl_interface *> m_globals;
    std::shared_ptr<SharedBuffers> m_buffers;
};
