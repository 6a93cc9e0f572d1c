#include "app/AppDelegate.h"

#include "base/Log.h"
#include "capture/Capture.h"
#include "capture/CaptureSession.h"
#include "hotkey/Prefs.h"
#include "hotkey/ShortcutForm.h"
#include "l10n/L10n.h"
#include "platform/Memory.h"
#include "platform/Platform.h"
#include "settings/SettingsWindow.h"
#include "updater/UpdateKey.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto menuCloses = 250ms; // so that the menu is not in the picture
constexpr auto updateCheckAfter = 4s;
constexpr auto captureIsGone = 1s; // with its windows and pictures

} // namespace

AppDelegate::AppDelegate(Platform &platform, CommandLine commandLine)
    : m_platform(platform)
    , m_commandLine(std::move(commandLine))
    , m_about([this](const QUrl &address) { m_platform.desktop->openWeb(address); })
    , m_permissionAlert([this] { openAccessSettings(); })
    , m_updater(*platform.updates, *platform.desktop, UpdateKey::pem())
{
    prepareUpdater();
}

AppDelegate::~AppDelegate() { m_platform.hotKeys->onBindingChanged = nullptr; }

void AppDelegate::prepareUpdater()
{
    m_updater.busy = [this] { return m_session || m_capturing || m_printing.isOpen(); };
    m_updater.terminate = [this] { terminate(); };
}

void AppDelegate::applicationDidFinishLaunching()
{
    m_hotKey.emplace(*m_platform.hotKeys, [this] { hotKeyPressed(); });
    m_platform.hotKeys->onBindingChanged = [this] { bindingChanged(); };
    if (!m_commandLine.anyMode)
        takeShortcut();
    buildStatusItem();
    refreshMenuTitle();
    if (!m_platform.screens->accessGranted())
        m_platform.screens->requestAccess();
    if (!m_commandLine.anyMode)
        m_updater.settle();
    if (!m_commandLine.anyMode)
        QTimer::singleShot(updateCheckAfter, this, [this] { m_updater.check(Updater::Asked::byItself); });
    if (m_commandLine.capture)
        capture();
    if (m_commandLine.settings)
        openSettings();
}

void AppDelegate::takeShortcut()
{
    const Shortcut wanted = Prefs::shortcut();
    const bool taken = m_hotKey->registerShortcut(wanted);
    Log::write(QStringLiteral("registro de atajo %1 -> %2")
                   .arg(ShortcutForm::display(wanted, *m_platform.keyboard),
                        taken ? QStringLiteral("OK") : QStringLiteral("FALLO")));
    // Refused too, it leaves the program without a hot key; the menu still works.
    if (!taken)
        (void)m_hotKey->registerShortcut(Shortcut{});
}

void AppDelegate::buildStatusItem()
{
    m_menu.emplace(StatusMenu::Actions{
        .capture = [this] { captureFromMenu(); },
        .settings = [this] { openSettings(); },
        .about = [this] { openAbout(); },
        .web = [this] { openWeb(); },
        .updates = [this] { checkUpdates(); },
        .quit = [this] { terminate(); },
    });
    m_menu->showIn(*m_platform.statusItem);
}

void AppDelegate::refreshMenuTitle() { m_menu->setShortcut(shortcutText()); }

// As this program or the desktop has it; empty where neither takes shortcuts.
QString AppDelegate::shortcutText() const
{
    const HotKeyService &service = *m_platform.hotKeys;
    if (service.binding() == HotKeyService::Binding::program)
        return ShortcutForm::display(Prefs::shortcut(), *m_platform.keyboard);
    return service.boundKeys();
}

void AppDelegate::bindingChanged()
{
    refreshMenuTitle();
    if (m_settings)
        m_settings->setBinding(m_platform.hotKeys->binding(), m_platform.hotKeys->boundKeys());
}

void AppDelegate::captureFromMenu()
{
    QTimer::singleShot(menuCloses, this, [this] { capture(); });
}

void AppDelegate::hotKeyPressed()
{
    if (m_settings && m_hotKey->shortcut() && m_settings->hearShortcut(*m_hotKey->shortcut()))
        return;
    Log::write(QStringLiteral("atajo pulsado"));
    capture();
}

void AppDelegate::capture()
{
    if (m_session || m_capturing)
        return;
    if (m_settings)
        m_settings->stopRecording(); // the overlays need the keyboard
    if (m_platform.screens->accessGranted())
        startCapture();
    else
        m_permissionAlert.show();
}

QCoro::Task<void> AppDelegate::startCapture()
{
    const QPointer<AppDelegate> alive(this);
    m_capturing = true;
    const auto shots = co_await Capture::captureAllScreens(*m_platform.screens, *m_platform.windows,
                                                           *m_platform.windowList);
    if (!alive)
        co_return;
    m_capturing = false;
    if (!shots)
        m_permissionAlert.show();
    if (!shots || shots->empty()) {
        m_updater.captureEnded();
        co_return;
    }
    m_session
        = std::make_unique<CaptureSession>(*m_platform.windows, *m_platform.windowList, *m_platform.desktop);
    // The session reports its end from within one of its own windows' events.
    m_session->onFinish = [this] {
        m_session.release()->deleteLater();
        m_updater.captureEnded();
        QTimer::singleShot(captureIsGone, this, [] { Memory::giveBack(); });
    };
    m_session->onPrint = [this](const QImage &picture) { m_printing.show(picture); };
    m_session->start(*shots);
}

void AppDelegate::openAccessSettings()
{
    if (!m_platform.screens->openAccessSettings())
        openWeb();
}

void AppDelegate::openSettings()
{
    if (!m_settings) {
        m_settings
            = std::make_unique<SettingsWindow>(SettingsWindow::Services{.layout = *m_platform.keyboard,
                                                                        .keyboard = *m_platform.keyboardGrab,
                                                                        .loginItem = *m_platform.loginItem,
                                                                        .desktop = *m_platform.desktop});
        bindingChanged();
        m_settings->onShortcut = [this](const Shortcut &proposed) { return changeShortcut(proposed); };
        m_settings->onQuit = [this] { terminate(); };
    }
    m_settings->present();
}

bool AppDelegate::changeShortcut(const Shortcut &proposed)
{
    const bool taken = m_hotKey->registerShortcut(proposed);
    // The settings save what was accepted after this returns.
    QTimer::singleShot(0, this, [this] { refreshMenuTitle(); });
    return taken;
}

void AppDelegate::openAbout() { m_about.show(); }

void AppDelegate::openWeb() { m_platform.desktop->openWeb(L10n::web()); }

void AppDelegate::checkUpdates() { m_updater.check(Updater::Asked::byUser); }

void AppDelegate::terminate()
{
    if (m_settings)
        m_settings->stopRecording();
    if (m_session)
        m_session->finish();
    // Quitting would first ask every window, and one could refuse.
    QCoreApplication::exit();
}
