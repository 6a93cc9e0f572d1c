#pragma once

#include "platform/StatusItem.h"
#include "platform/freedesktop/TrayHost.h"

#include <QMenu>
#include <QObject>
#include <QPointer>
#include <QSystemTrayIcon>

#include <memory>
#include <optional>
#include <vector>

class SettingsPortal;

// Shows a tray icon once there is a tray. Qt looks for a tray only once, when it is
// first asked, so that question is put off until then.
class TrayStatusItem final : public QObject, public StatusItem {
    Q_OBJECT

public:
    // Says what a left click does. A menu opens beside the pointer only where a program
    // may place its windows; elsewhere the click does what the menu's first entry does,
    // and the panel shows the menu itself, on a right click.
    enum class LeftClick { opensMenu, takesFirstEntry };

    TrayStatusItem(std::vector<std::unique_ptr<TrayHost>> hosts,
                   std::shared_ptr<const SettingsPortal> settings, LeftClick leftClick);

    void show(QMenu &menu) override;
    bool shows() const override { return m_icon && m_icon->isVisible(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showWhereHosted();
    void clicked();
    void followPanel();

    std::vector<std::unique_ptr<TrayHost>> m_hosts;
    std::shared_ptr<const SettingsPortal> m_settings;
    const LeftClick m_leftClick;
    QPointer<QMenu> m_menu;
    std::optional<QSystemTrayIcon> m_icon; // absent until a tray is there
};
