#include "platform/wayland/QtQueue.h"

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>

#include <algorithm>
#include <poll.h>

namespace {

constexpr int longestRoundtrip = 3000; // milliseconds

QPlatformNativeInterface *native() { return QGuiApplication::platformNativeInterface(); }

} // namespace

std::shared_ptr<QtQueue> QtQueue::open()
{
    auto *display = static_cast<wl_display *>(native()->nativeResourceForIntegration("wl_display"));
    return display ? std::shared_ptr<QtQueue>(new QtQueue(display)) : nullptr;
}

// Qt reads from the socket in a thread and wakes the main one, whatever the queue is.
QtQueue::QtQueue(wl_display *display) : m_display(display), m_queue(wl_display_create_queue(display))
{
    static constexpr wl_registry_listener listener{
        .global =
            [](void *self, wl_registry *, std::uint32_t name, const char *interface, std::uint32_t version) {
                static_cast<QtQueue *>(self)->m_globals.push_back({name, interface, version});
            },
        .global_remove =
            [](void *self, wl_registry *, std::uint32_t name) {
                std::erase_if(static_cast<QtQueue *>(self)->m_globals,
                              [name](const Global &global) { return global.name == name; });
            },
    };
    auto *wrapper = static_cast<wl_display *>(wl_proxy_create_wrapper(display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(wrapper), m_queue);
    m_registry = wl_display_get_registry(wrapper);
    wl_proxy_wrapper_destroy(wrapper);
    wl_registry_add_listener(m_registry, &listener, this);
    roundtrip();
    auto *loop = QAbstractEventDispatcher::instance();
    connect(loop, &QAbstractEventDispatcher::aboutToBlock, this, &QtQueue::dispatch);
    connect(loop, &QAbstractEventDispatcher::awake, this, &QtQueue::dispatch);
}

QtQueue::~QtQueue()
{
    wl_registry_destroy(m_registry);
    wl_event_queue_destroy(m_queue);
}

void *QtQueue::bindAny(const wl_interface &interface, std::uint32_t version) const
{
    const auto found = std::ranges::find(m_globals, QByteArray(interface.name), &Global::interface);
    if (found == m_globals.end())
        return nullptr;
    return wl_registry_bind(m_registry, found->name, &interface, std::min(version, found->version));
}

bool QtQueue::waitFor(const std::function<bool()> &condition, int milliseconds)
{
    const QDeadlineTimer end(milliseconds);
    while (!condition()) {
        if (wl_display_prepare_read_queue(m_display, m_queue) != 0) { // something is there already
            if (wl_display_dispatch_queue_pending(m_display, m_queue) < 0)
                return false;
            continue;
        }
        wl_display_flush(m_display);
        pollfd arrivals{wl_display_get_fd(m_display), POLLIN, 0};
        if (::poll(&arrivals, 1, static_cast<int>(end.remainingTime())) <= 0) {
            wl_display_cancel_read(m_display);
            if (end.hasExpired() || wl_display_get_error(m_display) != 0)
                return false;
            continue;
        }
        if (wl_display_read_events(m_display) < 0
            || wl_display_dispatch_queue_pending(m_display, m_queue) < 0)
            return false;
    }
    return true;
}

bool QtQueue::roundtrip()
{
    static constexpr wl_callback_listener listener{
        .done = [](void *done, wl_callback *, std::uint32_t) { *static_cast<bool *>(done) = true; }};
    auto *wrapper = static_cast<wl_display *>(wl_proxy_create_wrapper(m_display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(wrapper), m_queue);
    wl_callback *callback = wl_display_sync(wrapper);
    wl_proxy_wrapper_destroy(wrapper);
    bool done = false;
    wl_callback_add_listener(callback, &listener, &done);
    const bool answered = waitFor([&done] { return done; }, longestRoundtrip);
    wl_callback_destroy(callback);
    return answered;
}

void QtQueue::flush() { wl_display_flush(m_display); }

void QtQueue::dispatch()
{
    wl_display_dispatch_queue_pending(m_display, m_queue);
    wl_display_flush(m_display);
}

wl_callback *QtQueue::frameOf(wl_surface *surface) const
{
    auto *wrapper = static_cast<wl_surface *>(wl_proxy_create_wrapper(surface));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(wrapper), m_queue);
    wl_callback *callback = wl_surface_frame(wrapper);
    wl_proxy_wrapper_destroy(wrapper);
    return callback;
}

wl_surface *QtQueue::surfaceOf(QWindow &window)
{
    return static_cast<wl_surface *>(native()->nativeResourceForWindow("surface", &window));
}

wl_output *QtQueue::outputOf(QScreen &screen)
{
    return static_cast<wl_output *>(native()->nativeResourceForScreen("output", &screen));
}

wl_seat *QtQueue::seat() { return static_cast<wl_seat *>(native()->nativeResourceForIntegration("wl_seat")); }
