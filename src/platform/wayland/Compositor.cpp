#include "platform/wayland/Compositor.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>

#include <wayland-client.h>

#include <algorithm>
#include <memory>
#include <poll.h>

namespace {

constexpr int patience = 5000; // milliseconds

using Display = std::unique_ptr<wl_display, decltype(&wl_display_disconnect)>;

// False at the end of the time, or when the connection is lost.
bool waitForEvents(wl_display *display, const QDeadlineTimer &end)
{
    if (wl_display_prepare_read(display) != 0)
        return wl_display_dispatch_pending(display) >= 0;
    wl_display_flush(display);
    pollfd arrivals{wl_display_get_fd(display), POLLIN, 0};
    if (::poll(&arrivals, 1, static_cast<int>(end.remainingTime())) <= 0) {
        wl_display_cancel_read(display);
        return false;
    }
    return wl_display_read_events(display) >= 0 && wl_display_dispatch_pending(display) >= 0;
}

// A compositor that is stuck still takes connections.
bool answers(wl_display *display)
{
    static constexpr wl_callback_listener listener{
        .done = [](void *answered, wl_callback *, std::uint32_t) { *static_cast<bool *>(answered) = true; }};
    bool answered = false;
    const QDeadlineTimer end(patience);
    wl_callback *callback = wl_display_sync(display);
    wl_callback_add_listener(callback, &listener, &answered);
    while (!answered && waitForEvents(display, end)) {
    }
    wl_callback_destroy(callback);
    return answered;
}

// Qt's own search begins once the application is there. A bundle has the plugins beside
// its programs.
bool qtHasPlugin()
{
    QStringList folders = QCoreApplication::libraryPaths();
    folders.append(QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).path()
                   + QStringLiteral("/../plugins"));
    for (QString &folder : folders)
        folder += QStringLiteral("/platforms");
    folders.append(qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH", folders.front()));
    return std::ranges::any_of(folders, [](const QString &folder) {
        return !QDir(folder).entryList({QStringLiteral("libqwayland-*")}).isEmpty();
    });
}

} // namespace

namespace Compositor {

std::optional<QString> problem(const QString &name)
{
    if (!qtHasPlugin())
        return QStringLiteral("Qt's plugin for Wayland is missing (qt6-wayland)");
    const Display display(wl_display_connect(QFile::encodeName(name).constData()), &wl_display_disconnect);
    if (!display)
        return QStringLiteral("the Wayland display %1 cannot be opened").arg(name);
    if (!answers(display.get()))
        return QStringLiteral("the Wayland display %1 does not answer").arg(name);
    return std::nullopt;
}

void prepareQt(const QString &name)
{
    qputenv("WAYLAND_DISPLAY", QFile::encodeName(name));
    if (const QString chosen = qEnvironmentVariable("QT_QPA_PLATFORM");
        !chosen.startsWith(u"wayland") || chosen.contains(u';'))
        qputenv("QT_QPA_PLATFORM", "wayland");
    // Windows that bypass the window manager come without a role, which they then get
    // from us.
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
}

} // namespace Compositor
