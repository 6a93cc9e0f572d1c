#include "platform/wayland/Connection.h"

#include <QDeadlineTimer>
#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>
#include <poll.h>

std::unique_ptr<Connection> Connection::open()
{
    wl_display *display = wl_display_connect(nullptr);
    if (!display)
        return nullptr;
    std::unique_ptr<Connection> connection(new Connection(display));
    return connection->roundtrip() ? std::move(connection) : nullptr;
}

Connection::Connection(wl_display *display)
    : m_display(display)
    , m_registry(wl_display_get_registry(display))
    , m_arrivals(std::make_unique<QSocketNotifier>(wl_display_get_fd(display), QSocketNotifier::Read))
{
    static constexpr wl_registry_listener listener{
        .global =
            [](void *self, wl_registry *, std::uint32_t name, const char *interface, std::uint32_t version) {
                static_cast<Connection *>(self)->appeared({name, interface, version});
            },
        .global_remove = [](void *self, wl_registry *,
                            std::uint32_t name) { static_cast<Connection *>(self)->vanished(name); },
    };
    wl_registry_add_listener(m_registry, &listener, this);
    connect(m_arrivals.get(), &QSocketNotifier::activated, this, &Connection::dispatch);
}

Connection::~Connection()
{
    m_arrivals.reset();
    wl_registry_destroy(m_registry);
    wl_display_disconnect(m_display);
}

void Connection::appeared(const Global &global) { m_globals.push_back(global); }

void Connection::vanished(std::uint32_t name)
{
    std::erase_if(m_globals, [name](const Global &global) { return global.name == name; });
}

void *Connection::bindAny(const wl_interface &interface, std::uint32_t version) const
{
    const auto found = std::ranges::find(m_globals, QByteArray(interface.name), &Global::interface);
    return found == m_globals.end() ? nullptr : bindAny(*found, interface, version);
}

void *Connection::bindAny(const Global &global, const wl_interface &interface, std::uint32_t version) const
{
    return wl_registry_bind(m_registry, global.name, &interface, std::min(version, global.version));
}

bool Connection::roundtrip() { return wl_display_roundtrip(m_display) >= 0; }

bool Connection::waitFor(const std::function<bool()> &condition, int milliseconds)
{
    const QDeadlineTimer end(milliseconds);
    while (!condition()) {
        if (wl_display_prepare_read(m_display) != 0) { // something has arrived already
            if (wl_display_dispatch_pending(m_display) < 0)
                return false;
            continue;
        }
        flush();
        pollfd arrivals{wl_display_get_fd(m_display), POLLIN, 0};
        const int ready = ::poll(&arrivals, 1, static_cast<int>(end.remainingTime()));
        if (ready <= 0) {
            wl_display_cancel_read(m_display);
            if (ready < 0 && errno == EINTR)
                continue;
            return false;
        }
        if (wl_display_read_events(m_display) < 0 || wl_display_dispatch_pending(m_display) < 0)
            return false;
    }
    return true;
}

void Connection::flush() { wl_display_flush(m_display); }

void Connection::dispatch()
{
    if (wl_display_prepare_read(m_display) == 0 && wl_display_read_events(m_display) < 0)
        return lose();
    if (wl_display_dispatch_pending(m_display) < 0)
        return lose();
    flush();
}

void Connection::lose()
{
    m_arrivals->setEnabled(false);
    if (onLost)
        onLost();
}
