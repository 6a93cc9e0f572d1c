#include "platform/freedesktop/OrdinaryWindows.h"

#include <QApplication>

#include <utility>

namespace {

constexpr const char *exemptProperty = "vellumoraExempt";

} // namespace

// The icon in the tray is a window too, but a part of the panel, and most panels
// would not take it back.
bool OrdinaryWindows::isOne(const QWidget &widget)
{
    const auto type = widget.windowType();
    return widget.isWindow() && (type == Qt::Window || type == Qt::Dialog)
           && !widget.windowFlags().testFlag(Qt::BypassWindowManagerHint)
           && !widget.property(exemptProperty).toBool();
}

bool OrdinaryWindows::isMenu(const QWidget &widget)
{
    return widget.isWindow() && widget.windowType() == Qt::Popup;
}

void OrdinaryWindows::exempt(QWidget &window) { window.setProperty(exemptProperty, true); }

std::vector<QWidget *> OrdinaryWindows::visible()
{
    std::vector<QWidget *> found;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && isOne(*widget))
            found.push_back(widget);
    return found;
}

bool OrdinaryWindows::closeMenus()
{
    const bool open = QApplication::activePopupWidget() != nullptr;
    while (QWidget *menu = QApplication::activePopupWidget())
        if (!menu->close())
            break;
    return open;
}

void OrdinaryWindows::hide(const std::vector<QWidget *> &windows)
{
    m_active = QApplication::activeWindow();
    for (QWidget *window : windows) {
        m_hidden.emplace_back(window);
        window->hide();
    }
}

void OrdinaryWindows::restore()
{
    for (const auto &window : std::exchange(m_hidden, {})) {
        if (!window)
            continue;
        window->setAttribute(Qt::WA_ShowWithoutActivating, true);
        window->show();
        window->setAttribute(Qt::WA_ShowWithoutActivating, false);
        if (window == m_active)
            window->activateWindow();
    }
    m_active.clear();
}
