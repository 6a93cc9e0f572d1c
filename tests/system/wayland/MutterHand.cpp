#include "Hand.h"

#include <QDBusInterface>
#include <QDBusObjectPath>
#include <QDBusReply>

namespace {

constexpr double farAway = 20000; // points; farther than any desktop reaches

// A remote desktop: moves are relative to where the pointer is.
class MutterHand final : public Hand {
public:
    explicit MutterHand(const QString &session)
        : m_session("org.gnome.Mutter.RemoteDesktop", session, "org.gnome.Mutter.RemoteDesktop.Session")
    {
        m_session.call("Start");
    }

    void moveTo(double x, double y) override
    {
        if (m_x < 0) { // into the corner first
            m_session.call("NotifyPointerMotionRelative", -farAway, -farAway);
            m_x = m_y = 0;
        }
        m_session.call("NotifyPointerMotionRelative", (x - m_x) / m_stretch, (y - m_y) / m_stretch);
        m_x = x;
        m_y = y;
    }
    void stretch(double factor) override { m_stretch = factor; }
    void button(std::uint32_t code, bool down) override
    {
        m_session.call("NotifyPointerButton", static_cast<int>(code), down);
    }
    void key(std::uint32_t code, bool down) override { m_session.call("NotifyKeyboardKeycode", code, down); }
    bool settle() override { return m_session.lastError().type() == QDBusError::NoError; }

private:
    QDBusInterface m_session;
    double m_x = -1, m_y = -1; // where the pointer is; unknown at first
    double m_stretch = 1;
};

} // namespace

std::unique_ptr<Hand> makeMutterHand()
{
    QDBusInterface desktop("org.gnome.Mutter.RemoteDesktop", "/org/gnome/Mutter/RemoteDesktop",
                           "org.gnome.Mutter.RemoteDesktop");
    const QDBusReply<QDBusObjectPath> session = desktop.call("CreateSession");
    if (!session.isValid())
        return nullptr;
    return std::make_unique<MutterHand>(session.value().path());
}
