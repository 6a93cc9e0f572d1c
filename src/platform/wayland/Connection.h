#pragma once

#include <QByteArray>
#include <QObject>

#include <wayland-client.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QSocketNotifier;

// A connection to the compositor beside Qt's, for all that needs no window: the
// pictures of the screens and the clipboard. Its events are handled on the main thread,
// from the event loop.
class Connection final : public QObject {
public:
    // To the compositor that the environment names; null when there is none.
    [[nodiscard]] static std::unique_ptr<Connection> open();
    ~Connection() override;

    // What the compositor offers.
    struct Global {
        std::uint32_t name;
        QByteArray interface;
        std::uint32_t version;
    };
    [[nodiscard]] const std::vector<Global> &globals() const { return m_globals; }

    // The first global of this kind, in no later version than the one given; null
    // when there is none. Whoever binds it destroys it.
    template <typename Proxy>
    [[nodiscard]] Proxy *bind(const wl_interface &interface, std::uint32_t version) const
    {
        return static_cast<Proxy *>(bindAny(interface, version));
    }
    template <typename Proxy>
    [[nodiscard]] Proxy *bind(const Global &global, const wl_interface &interface,
                              std::uint32_t version) const
    {
        return static_cast<Proxy *>(bindAny(global, interface, version));
    }

    // Sends what was asked for and waits until it has been answered. False when the
    // compositor is gone.
    bool roundtrip();
    // Sends what was asked for and waits for answers until the condition holds; false
    // when the compositor is gone or the time is over (milliseconds).
    bool waitFor(const std::function<bool()> &condition, int milliseconds);
    // Sends what was asked for.
    void flush();

    // Called when the compositor has gone; nothing works from then on.
    std::function<void()> onLost;

private:
    explicit Connection(wl_display *display);

    void appeared(const Global &global);
    void vanished(std::uint32_t name);
    void dispatch();
    void lose();
    [[nodiscard]] void *bindAny(const wl_interface &interface, std::uint32_t version) const;
    [[nodiscard]] void *bindAny(const Global &global, const wl_interface &interface,
                                std::uint32_t version) const;

    wl_display *m_display;
    wl_registry *m_registry;
    std::unique_ptr<QSocketNotifier> m_arrivals;
    std::vector<Global> m_globals;
};
