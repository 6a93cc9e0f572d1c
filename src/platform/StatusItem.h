#pragma once

class QMenu;

// Shows the icon in the desktop's tray or panel.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    // Shows the icon as soon as there is a place for it, now or later. A left click
    // on it opens the menu, or takes the menu's first entry where a program cannot open
    // menus, for as long as the menu exists. Where there is never a place, nothing
    // shows and nothing is reported.
    virtual void show(QMenu &menu) = 0;
    // Returns whether the icon has a place at the moment.
    [[nodiscard]] virtual bool shows() const = 0;
};
