#pragma once

#include <QMenu>

#include <functional>

class StatusItem;

// The menu of the tray icon.
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

    // The shortcut as it is displayed, such as "⇧⌘X".
    void setShortcut(const QString &display);

private:
    // A menu whose shortcuts work while it is open; the toolkit only shows them.
    class Menu final : public QMenu {
    protected:
        void keyPressEvent(QKeyEvent *event) override;
    };

    Menu m_menu;
    QAction *m_capture;
};
