#include "Hand.h"

#include <QDBusInterface>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QVariantMap>

namespace {

const QString remoteDesktop = "org.gnome.Mutter.RemoteDesktop";
const QString screenCast = "org.gnome.Mutter.ScreenCast";

// A remote desktop. Places are those of a film of the whole desktop, which nobody
// watches.
class MutterHand final : public Hand {
public:
    MutterHand(const QString &session, QString film)
        : m_session(remoteDesktop, session, remoteDesktop + ".Session")
        , m_film(std::move(film))
    {
        m_session.call("Start");
    }

    void moveTo(double x, double y) override { m_session.call("NotifyPointerMotionAbsolute", m_film, x, y); }
    void button(std::uint32_t code, bool down) override
    {
        m_session.call("NotifyPointerButton", static_cast<int>(code), down);
    }
    void key(std::uint32_t code, bool down) override { m_session.call("NotifyKeyboardKeycode", code, down); }
    bool settle() override { return m_session.lastError().type() == QDBusError::NoError; }

private:
    QDBusInterface m_session;
    QString m_film;
};

QString pathIn(const QDBusMessage &reply) { return QDBusReply<QDBusObjectPath>(reply).value().path(); }

} // namespace

std::unique_ptr<Hand> makeMutterHand(std::uint32_t width, std::uint32_t height)
{
    QDBusInterface desktop(remoteDesktop, "/org/gnome/Mutter/RemoteDesktop", remoteDesktop);
    const QString session = pathIn(desktop.call("CreateSession"));
    const QVariant id
        = QDBusInterface(remoteDesktop, session, remoteDesktop + ".Session").property("SessionId");
    QDBusInterface films(screenCast, "/org/gnome/Mutter/ScreenCast", screenCast);
    const QString filming
        = pathIn(films.call("CreateSession", QVariantMap{{"remote-desktop-session-id", id}}));
    QDBusInterface area(screenCast, filming, screenCast + ".Session");
    const QString film = pathIn(
        area.call("RecordArea", 0, 0, static_cast<int>(width), static_cast<int>(height), QVariantMap()));
    if (film.isEmpty())
        return nullptr;
    return std::make_unique<MutterHand>(session, film);
}
