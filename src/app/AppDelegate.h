#pragma once

#include "app/AboutPanel.h"
#include "app/CommandLine.h"
#include "app/PermissionAlert.h"
#include "app/StatusMenu.h"
#include "hotkey/HotKey.h"
#include "overlay/output/Printing.h"
#include "updater/Updater.h"

#include <QCoroTask>
#include <QObject>

#include <memory>
#include <optional>

class CaptureSession;
class SettingsWindow;
struct Platform;

// Owns the status item, the hot key, the settings window and the capture in
// progress, of which there is never more than one.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    // Takes the platform, which must outlive this object.
    AppDelegate(Platform &platform, CommandLine commandLine);
    ~AppDelegate() override;

    void applicationDidFinishLaunching();

    // Does nothing while a capture is in progress.
    void capture();
    void captureFromMenu();
    void openSettings();
    void openAbout();
    void openWeb();
    void checkUpdates();

    // Ends the program, whatever is going on: gives back the keyboard and the
    // screens and asks no window whether it may close.
    void terminate();

private:
    void takeShortcut();
    void buildStatusItem();
    void refreshMenuTitle();
    void bindingChanged();
    [[nodiscard]] QString shortcutText() const;
    void hotKeyPressed();
    void openAccessSettings();
    QCoro::Task<void> startCapture();
    void prepareUpdater();
    [[nodiscard]] bool changeShortcut(const Shortcut &proposed);

    Platform &m_platform;
    const CommandLine m_commandLine;
    std::optional<HotKey> m_hotKey;
    std::optional<StatusMenu> m_menu;
    AboutPanel m_about;
    PermissionAlert m_permissionAlert;
    std::unique_ptr<SettingsWindow> m_settings;
    std::unique_ptr<CaptureSession> m_session; // present exactly while overlays show
    bool m_capturing = false;                  // the screens are being read
    Printing m_printing;
    Updater m_updater;
};
