#pragma once

#include "access/Announcer.h"
#include "platform/HotKeyService.h"

#include <QWidget>

#include <functional>

class BindByHand;
class Desktop;
class KeyboardGrab;
class KeyboardLayout;
class LinkButton;
class LoginItem;
class QCheckBox;
class QLabel;
class ShortcutRecorder;

// Shows the settings: the shortcut, whether to start at login, the version, and a
// link for donations.
class SettingsWindow final : public QWidget {
    Q_OBJECT

public:
    // Holds what the window needs of the system. All four must outlive the window.
    struct Services {
        const KeyboardLayout &layout;
        KeyboardGrab &keyboard;
        LoginItem &loginItem;
        Desktop &desktop;
    };
    explicit SettingsWindow(const Services &services);

    // Called with a proposed shortcut. Returns true when it is in force from then
    // on; otherwise the former one stays in force.
    std::function<bool(const Shortcut &)> onShortcut;

    // Called when the program is to end, which without a tray can be said nowhere else.
    std::function<void()> onQuit;

    // Tells who decides which keys bring a capture, and which keys those are where it
    // is the desktop. It is this program until something else is told.
    void setBinding(HotKeyService::Binding binding, const QString &boundKeys);

    // Shows the window, up to date, in front of other programs.
    void present();

    void stopRecording();

    // Must be called when the shortcut in force was pressed, which a system may
    // report instead of the key presses. Records the shortcut and returns true if
    // the recorder is recording; returns false otherwise.
    [[nodiscard]] bool hearShortcut(const Shortcut &inForce);

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class Status { hint, saved, refused };

    void build();
    void refresh();
    void changeShortcut(const Shortcut &proposed);
    void showStatus(Status status);
    [[nodiscard]] QString hint() const;
    void recolour();
    void refreshLogin();
    void toggleLogin(bool wanted);
    void openCafe();

    const Services m_services;
    Status m_shown = Status::hint;
    HotKeyService::Binding m_binding = HotKeyService::Binding::program;
    QString m_boundKeys;
    ShortcutRecorder *m_recorder;
    BindByHand *m_byHand; // shows instead of the recorder where nobody takes shortcuts
    QLabel *m_status;
    QCheckBox *m_login;
    QLabel *m_version;
    LinkButton *m_cafe;
    Announcer m_announcer{*this};
};
