#pragma once

#include <QMenu>

#include <functional>

class StatusItem;

// Builds the menu of the tray icon.
class StatusMenu final {
public:
    struct Actions {
        std::function<void()> capture;
        std::function<void()> settings;
        std::function<void()> about;
        std::function<void()> web;
        std::function<void()> updates;
        std::function<void()> quit;
    };

    explicit StatusMenu(const Actions &actions);

    void showIn(StatusItem &item);

    // Shows the shortcut in its displayed form, such as "⇧⌘X", or none.
    void setShortcut(const QString &display);

private:
    // Makes the shortcuts of a menu work while it is open; Qt only shows them.
    class Menu final : public QMenu {
    protected:
        void keyPressEvent(QKeyEvent *event) override;
    };

    Menu m_menu;
    QAction *m_capture;
};
