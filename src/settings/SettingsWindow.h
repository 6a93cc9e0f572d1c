#pragma once

#include "hotkey/Shortcut.h"

#include <QWidget>

#include <functional>

class KeyboardLayout;
class QLabel;

// The settings. For now they only show the shortcut in force.
class SettingsWindow final : public QWidget {
    Q_OBJECT

public:
    // The layout must outlive the window.
    explicit SettingsWindow(const KeyboardLayout &layout);

    // Proposes a shortcut; true when it is in force from now on.
    std::function<bool(const Shortcut &)> onShortcut;

    // Shows the window, up to date, in front of the other programs.
    void present();

private:
    const KeyboardLayout &m_layout;
    QLabel *m_shortcut;
};
