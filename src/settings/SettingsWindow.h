#pragma once

#include "platform/Shortcut.h"

#include <QWidget>

#include <functional>

class Desktop;
class KeyboardGrab;
class KeyboardLayout;
class LinkButton;
class LoginItem;
class QCheckBox;
class QLabel;
class ShortcutRecorder;

// The settings: the shortcut, starting at login, and who made this.
class SettingsWindow final : public QWidget {
    Q_OBJECT

public:
    // What it needs of the system. Has to outlive the window.
    struct Services {
        const KeyboardLayout &layout;
        KeyboardGrab &keyboard;
        LoginItem &loginItem;
        Desktop &desktop;
    };
    explicit SettingsWindow(const Services &services);

    // Proposes a shortcut; true when it is in force from now on. When it is not,
    // what was in force before still is.
    std::function<bool(const Shortcut &)> onShortcut;

    // Shows the window, up to date, in front of the other programs.
    void present();

    void stopRecording();

    // To be told when the shortcut in force was pressed, which a system may
    // report instead of its keys. True when it is being recorded, and so is now.
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
    void recolour();
    void refreshLogin();
    void toggleLogin(bool wanted);
    void openCafe();

    const Services m_services;
    Status m_shown = Status::hint;
    ShortcutRecorder *m_recorder;
    QLabel *m_status;
    QCheckBox *m_login;
    QLabel *m_version;
    LinkButton *m_cafe;
};
