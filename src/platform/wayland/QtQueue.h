#pragma once

#include <QByteArray>
#include <QObject>

#include <wayland-client.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QScreen;
class QWindow;

// A queue of our own on Qt's connection to the compositor, for what has to do with Qt's
// windows. Its events are handled on the main thread, between those of Qt.
class QtQueue final : public QObject {
public:
    // Null when Qt is not connected to a compositor.
    [[nodiscard]] static std::shared_ptr<QtQueue> open();
    ~QtQueue() override;

    // Binds the first global of this kind, in no later version than the one given; null
    // when there is none. Its events come over this queue. Whoever binds it destroys it.
    template <typename Proxy>
    [[nodiscard]] Proxy *bind(const wl_interface &interface, std::uint32_t version) const
    {
        return static_cast<Proxy *>(bindAny(interface, version));
    }

    // Sends what was asked for and waits for events until the condition holds; false
    // when the time is over (milliseconds) or the compositor gone.
    bool waitFor(const std::function<bool()> &condition, int milliseconds);
    // Waits until all that was asked for, by Qt too, has been carried out.
    bool roundtrip();
    void flush();
    // Handles the events that are there already, without waiting, and sends what was asked
    // for.
    void dispatch();

    // Returns what is told, over this queue, when the compositor wants the next picture
    // of the surface. Goes with the next commit.
    [[nodiscard]] wl_callback *frameOf(wl_surface *surface) const;

    // Qt's own objects; null where it has none yet.
    [[nodiscard]] static wl_surface *surfaceOf(QWindow &window);
    [[nodiscard]] static wl_output *outputOf(QScreen &screen);
    [[nodiscard]] static wl_seat *seat();

private:
    struct Global {
        std::uint32_t name;
        QByteArray interface;
        std::uint32_t version;
    };

    explicit QtQueue(wl_display *display);

    [[nodiscard]] void *bindAny(const wl_interface &interface, std::uint32_t version) const;

    wl_display *m_display;
    wl_event_queue *m_queue;
    wl_registry *m_registry;
    std::vector<Global> m_globals;
};
