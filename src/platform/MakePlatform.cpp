#include "platform/DisplayChoice.h"
#include "platform/Platform.h"
#include "platform/SingleInstance.h"

#include "platform/freedesktop/AutostartLoginItem.h"
#include "platform/freedesktop/BundleInstaller.h"
#include "platform/freedesktop/BusInstance.h"
#include "platform/freedesktop/FreedesktopDesktop.h"
#include "platform/freedesktop/SessionBus.h"
#include "platform/freedesktop/SettingsPortal.h"
#include "platform/freedesktop/SocketInstance.h"
#include "platform/freedesktop/StatusNotifierHost.h"
#include "platform/freedesktop/TrayStatusItem.h"
#include "platform/none/NoServices.h"
#include "platform/wayland/Compositor.h"
#include "platform/wayland/Connection.h"
#include "platform/wayland/KWinWindowList.h"
#include "platform/wayland/QtQueue.h"
#include "platform/wayland/SwayWindowList.h"
#include "platform/wayland/WaylandClipboard.h"
#include "platform/wayland/WaylandHotKeys.h"
#include "platform/wayland/WaylandKeyboardGrab.h"
#include "platform/wayland/WaylandKeyboardLayout.h"
#include "platform/wayland/WaylandScreenGrabber.h"
#include "platform/wayland/WaylandWindowPlacer.h"
#include "platform/x11/OwnWindows.h"
#include "platform/x11/X11Clipboard.h"
#include "platform/x11/X11HotKeys.h"
#include "platform/x11/X11KeyboardGrab.h"
#include "platform/x11/X11ScreenGrabber.h"
#include "platform/x11/X11WindowList.h"
#include "platform/x11/X11WindowPlacer.h"
#include "platform/x11/XembedHost.h"
#include "platform/x11/XkbKeyboardLayout.h"

#include <QGuiApplication>

#include <malloc.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

QString forced() { return qEnvironmentVariable("VELLUMORA_PLATAFORMA"); }

bool serverAnswers()
{
    auto *c = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(c) == 0;
    xcb_disconnect(c);
    return answers;
}

// Without a session manager nobody has made the folder for sockets; Qt
// would make the same one, but complain first.
void nameRuntimeFolder()
{
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", QByteArray("/tmp/runtime-") + QByteArray::number(getuid()));
}

// Pictures of screens go back to the system as soon as they are let go. Left to
// itself the allocator learns from the first one to keep the rest.
void giveLargeMemoryBack() { mallopt(M_MMAP_THRESHOLD, 1024 * 1024); }

void prepareEnvironment()
{
    giveLargeMemoryBack();
    SessionBus::doNotStartOne();
    nameRuntimeFolder();
}

Platform makeX11Platform()
{
    const auto settings = std::make_shared<SettingsPortal>();
    auto recorder = std::make_unique<X11KeyboardGrab>();
    auto hotKeys = std::make_unique<X11HotKeys>(*recorder);
    std::vector<std::unique_ptr<TrayHost>> trays;
    trays.push_back(std::make_unique<StatusNotifierHost>());
    trays.push_back(std::make_unique<XembedHost>());
    return {.screens = std::make_unique<X11ScreenGrabber>(),
            .windows = std::make_unique<X11WindowPlacer>(std::make_shared<OwnWindows>()),
            .windowList = std::make_unique<X11WindowList>(),
            .keyboardGrab = std::move(recorder),
            .keyboard = std::make_unique<XkbKeyboardLayout>(),
            .hotKeys = std::move(hotKeys),
            .statusItem = std::make_unique<TrayStatusItem>(std::move(trays), settings,
                                                           TrayStatusItem::LeftClick::opensMenu),
            .loginItem = std::make_unique<AutostartLoginItem>(),
            .desktop = std::make_unique<FreedesktopDesktop>(settings, std::make_unique<X11Clipboard>(),
                                                            FreedesktopDesktop::Bell::ofDisplay),
            .updates = std::make_unique<BundleInstaller>()};
}

std::unique_ptr<WindowList> makeWaylandWindowList()
{
    const QString sway = SwayWindowList::socket();
    if (!sway.isEmpty())
        return std::make_unique<SwayWindowList>(sway);
    if (KWinWindowList::present())
        return std::make_unique<KWinWindowList>();
    return makeNoWindowList();
}

Platform makeWaylandPlatform()
{
    const auto settings = std::make_shared<SettingsPortal>();
    const auto queue = QtQueue::open();
    const std::shared_ptr<Connection> connection = Connection::open();
    if (!queue || !connection)
        return makeNoPlatform();
    std::vector<std::unique_ptr<TrayHost>> trays;
    trays.push_back(std::make_unique<StatusNotifierHost>());
    auto keyboard = std::make_unique<WaylandKeyboardLayout>(queue);
    auto hotKeys = makeWaylandHotKeys(keyboard.get());
    return {.screens = makeWaylandScreenGrabber(connection),
            .windows = std::make_unique<WaylandWindowPlacer>(queue),
            .windowList = makeWaylandWindowList(),
            .keyboardGrab = std::make_unique<WaylandKeyboardGrab>(queue),
            .keyboard = std::move(keyboard),
            .hotKeys = std::move(hotKeys),
            .statusItem = std::make_unique<TrayStatusItem>(std::move(trays), settings,
                                                           TrayStatusItem::LeftClick::takesFirstEntry),
            .loginItem = std::make_unique<AutostartLoginItem>(),
            .desktop
            = std::make_unique<FreedesktopDesktop>(settings, std::make_unique<WaylandClipboard>(connection),
                                                   FreedesktopDesktop::Bell::ofSoundTheme),
            .updates = std::make_unique<BundleInstaller>()};
}

Platform makePicturesPlatform(const QString &display)
{
    Platform platform = makeNoPlatform();
    if (display == u"xcb") {
        platform.screens = std::make_unique<X11ScreenGrabber>();
        platform.windows = std::make_unique<X11WindowPlacer>(std::make_shared<OwnWindows>());
        return platform;
    }
    const auto queue = QtQueue::open();
    const std::shared_ptr<Connection> connection = Connection::open();
    if (queue && connection) {
        platform.screens = makeWaylandScreenGrabber(connection);
        platform.windows = std::make_unique<WaylandWindowPlacer>(queue);
    }
    return platform;
}

std::optional<QString> prepareX11()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return QStringLiteral("there is no display to run on: neither WAYLAND_DISPLAY nor DISPLAY is set");
    if (!serverAnswers())
        return QStringLiteral("the display %1 cannot be opened").arg(qEnvironmentVariable("DISPLAY"));
    qputenv("QT_QPA_PLATFORM", "xcb");
    return std::nullopt;
}

std::optional<QString> prepareWayland(const QString &name)
{
    auto problem = Compositor::problem(name);
    if (!problem)
        Compositor::prepareQt(name);
    return problem;
}

} // namespace

Platform makePlatform(Services services)
{
    const QString display = QGuiApplication::platformName();
    const bool wayland = display.startsWith(u"wayland");
    if (forced() == u"none" || (!wayland && display != u"xcb"))
        return makeNoPlatform();
    if (services == Services::pictures)
        return makePicturesPlatform(display);
    return wayland ? makeWaylandPlatform() : makeX11Platform();
}

std::unique_ptr<SingleInstance> makeSingleInstance()
{
    return std::make_unique<BusInstance>(std::make_unique<SocketInstance>());
}

std::optional<QString> prepareDisplay()
{
    const auto display = DisplayChoice::make(); // before the environment changes
    prepareEnvironment();
    switch (display.kind) {
    case DisplayChoice::Kind::imaginary: return std::nullopt;
    case DisplayChoice::Kind::x11: return prepareX11();
    case DisplayChoice::Kind::wayland: return prepareWayland(QString::fromStdString(display.name));
    }
    return std::nullopt;
}

void prepareOffscreen(int scale)
{
    prepareEnvironment();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
    qunsetenv("QT_SCREEN_SCALE_FACTORS"); // of screens that are not used
}
