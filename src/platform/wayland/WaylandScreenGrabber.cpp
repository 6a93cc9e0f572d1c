#include "platform/wayland/WaylandScreenGrabber.h"

#include "base/Log.h"
#include "platform/freedesktop/PrivacySettings.h"
#include "platform/wayland/ExtCopyGrabber.h"
#include "platform/wayland/KWinGrabber.h"
#include "platform/wayland/PortalGrabber.h"
#include "platform/wayland/ScreencopyGrabber.h"
#include "platform/wayland/ScreenshotPermission.h"

#include <utility>

namespace {

using Sources = std::vector<std::shared_ptr<ScreenSource>>;

// The ways that did not work, and why, in the order in which they were tried.
class Falls {
public:
    void add(const ScreenSource &source, const QString &problem)
    {
        m_now += QStringLiteral("%1%2: %3")
                     .arg(m_now.isEmpty() ? QString() : QStringLiteral("; "), source.name(), problem);
    }

    // Says so once, and again when it is different.
    void end()
    {
        if (m_now != m_said && !m_now.isEmpty())
            Log::write(QStringLiteral("captura por otra vía: ") + m_now);
        m_said = std::exchange(m_now, {});
    }

private:
    QString m_now;
    QString m_said;
};

class WaylandScreenGrabber final : public ScreenGrabber {
public:
    explicit WaylandScreenGrabber(const std::shared_ptr<Connection> &connection)
    {
        const auto screencopy = std::make_shared<ScreencopyGrabber>(connection);
        const auto extCopy = std::make_shared<ExtCopyGrabber>(connection);
        *m_portalServes = !screencopy->offered() && !extCopy->offered();
        m_sources = {screencopy, extCopy, std::make_shared<KWinGrabber>(),
                     std::make_shared<PortalGrabber>(connection)};
        lookForRefusal();
    }

    bool accessGranted() override
    {
        lookForRefusal();
        return !m_permission || !m_permission->refused();
    }

    // The desktop asks by itself at the first capture. Who has said no is asked again
    // only when he wants to be.
    void requestAccess() override {}

    // Desktops have no page for programs that they did not install; that the user wants
    // to see it is reason enough to ask him again.
    bool openAccessSettings() override
    {
        if (m_permission)
            m_permission->forget();
        return PrivacySettings::open();
    }

    QCoro::Task<std::optional<std::vector<ScreenShot>>> grabScreens() override
    {
        return grabBest(m_sources, m_falls, m_portalServes);
    }

private:
    // Holds what it needs itself, because this may be gone before the screens are read.
    static QCoro::Task<std::optional<std::vector<ScreenShot>>> grabBest(Sources sources,
                                                                        std::shared_ptr<Falls> falls,
                                                                        std::shared_ptr<bool> portalServes)
    {
        std::optional<std::vector<ScreenShot>> shots;
        for (const auto &source : sources) {
            *portalServes |= source == sources.back();
            ScreenSource::Result result = co_await source->grab();
            shots = std::move(result.shots);
            if (!shots)
                falls->add(*source, result.problem);
            if (shots || result.final)
                break;
        }
        falls->end();
        co_return shots;
    }

    // Where the compositor itself copies, nobody has been asked.
    void lookForRefusal()
    {
        if (*m_portalServes && !m_permission)
            m_permission.emplace();
    }

    Sources m_sources; // the portal last
    std::optional<ScreenshotPermission> m_permission;
    std::shared_ptr<Falls> m_falls = std::make_shared<Falls>();
    std::shared_ptr<bool> m_portalServes = std::make_shared<bool>(); // or may have to
};

} // namespace

std::unique_ptr<ScreenGrabber> makeWaylandScreenGrabber(std::shared_ptr<Connection> connection)
{
    return std::make_unique<WaylandScreenGrabber>(connection);
}
