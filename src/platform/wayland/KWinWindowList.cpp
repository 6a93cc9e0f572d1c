#include "platform/wayland/KWinWindowList.h"

#include "platform/freedesktop/SessionBus.h"
#include "platform/wayland/KWinScript.h"
#include "platform/wayland/ScreenScale.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

// Tells the place in points of the desktop and the process of every window, the topmost
// first. Panels, notifications and the like are special windows.
const QString script = QStringLiteral(R"(
const shown = workspace.currentDesktop;
const all = workspace.windowList ? workspace.windowList() : workspace.clientList();
const onDesktop = w => w.onAllDesktops || (w.desktops ? w.desktops.includes(shown) : w.desktop === shown);
const inActivity = w => w.activities.length === 0 || w.activities.includes(workspace.currentActivity);
const frames = all.filter(w => !w.minimized && !w.specialWindow && onDesktop(w) && inActivity(w))
    .sort((a, b) => b.stackingOrder - a.stackingOrder)
    .map(w => [w.frameGeometry.x, w.frameGeometry.y, w.frameGeometry.width, w.frameGeometry.height, w.pid]);
tell(JSON.stringify(frames));
)");

} // namespace

KWinWindowList::KWinWindowList() = default;

KWinWindowList::~KWinWindowList() = default;

bool KWinWindowList::present()
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    return desktops.contains(QStringLiteral("KDE")) && SessionBus::present();
}

void KWinWindowList::freeze() { m_script = std::make_unique<KWinScript>(script); }

// The overlays may have come before the script did.
std::vector<QRect> KWinWindowList::framesOn(const ScreenShot &shot)
{
    std::vector<QRectF> frames;
    const QJsonArray windows
        = m_script ? QJsonDocument::fromJson(m_script->told().toUtf8()).array() : QJsonArray();
    const QPointF corner = shot.screen->geometry().topLeft();
    for (const auto &window : windows)
        if (window[4].toInteger() != QCoreApplication::applicationPid())
            frames.emplace_back(QPointF(window[0].toDouble(), window[1].toDouble()) - corner,
                                QSizeF(window[2].toDouble(), window[3].toDouble()));
    return ScreenScale::pixelsOn(shot, frames);
}

void KWinWindowList::forget() { m_script.reset(); }
