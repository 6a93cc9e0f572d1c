#pragma once

class QMenu;

// The icon in the desktop's tray or panel.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    // Shows the icon as soon as there is a place for it, now or later; its
    // clicks open the menu, for as long as that exists. Where there never is a
    // place, nothing shows and nothing is said.
    virtual void show(QMenu &menu) = 0;
    // Whether there is a place for it at the moment.
    [[nodiscard]] virtual bool shows() const = 0;
};
