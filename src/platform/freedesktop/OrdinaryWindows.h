#pragma once

#include <QPointer>
#include <QWidget>

#include <vector>

// This program's own ordinary windows, which are off the screen during a session: not
// its menus, not the overlays.
class OrdinaryWindows {
public:
    [[nodiscard]] static bool isOne(const QWidget &widget);
    [[nodiscard]] static bool isMenu(const QWidget &widget);
    // Marks a window as part of a session, so that it is left alone.
    static void exempt(QWidget &window);

    [[nodiscard]] static std::vector<QWidget *> visible();
    // Closes all that are open and returns whether there were any.
    static bool closeMenus();

    // Hides the windows and remembers them, and which of them had the keyboard.
    void hide(const std::vector<QWidget *> &windows);
    // Shows the windows again. The one that had the keyboard has it again, the others
    // do not take it.
    void restore();
    [[nodiscard]] bool anyHidden() const { return !m_hidden.empty(); }

private:
    std::vector<QPointer<QWidget>> m_hidden;
    QPointer<QWidget> m_active; // one of the hidden, or none
};
