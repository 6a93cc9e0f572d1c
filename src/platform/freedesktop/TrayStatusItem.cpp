#include "platform/freedesktop/TrayStatusItem.h"

#include "platform/freedesktop/SettingsPortal.h"
#include "platform/freedesktop/TrayGlyph.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QMenu>
#include <QPalette>

#include <algorithm>

namespace {

PanelLook panelLook(const SettingsPortal &settings)
{
    if (const auto dark = settings.prefersDark())
        return *dark ? PanelLook::dark : PanelLook::light;
    const QPalette palette = QApplication::palette();
    const bool dark
        = palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
    return dark ? PanelLook::dark : PanelLook::light;
}

} // namespace

TrayStatusItem::TrayStatusItem(std::vector<std::unique_ptr<TrayHost>> hosts,
                               std::shared_ptr<const SettingsPortal> settings, LeftClick leftClick)
    : m_hosts(std::move(hosts))
    , m_settings(std::move(settings))
    , m_leftClick(leftClick)
{
    connect(m_settings.get(), &SettingsPortal::changed, this, [this] { followPanel(); });
    qApp->installEventFilter(this);
}

void TrayStatusItem::show(QMenu &menu)
{
    m_menu = &menu;
    for (const auto &host : m_hosts)
        host->onAppeared = [this] { showWhereHosted(); };
    showWhereHosted();
}

void TrayStatusItem::showWhereHosted()
{
    if (m_icon || std::ranges::none_of(m_hosts, [](const auto &host) { return host->present(); }))
        return;
    m_icon.emplace();
    m_icon->setToolTip(QStringLiteral("Vellumora"));
    m_icon->setContextMenu(m_menu);
    connect(&*m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            clicked();
    });
    followPanel();
    m_icon->show();
}

void TrayStatusItem::clicked()
{
    if (!m_menu || m_menu->isEmpty())
        return;
    if (m_leftClick == LeftClick::opensMenu)
        m_menu->popup(QCursor::pos());
    else
        m_menu->actions().constFirst()->trigger();
}

void TrayStatusItem::followPanel()
{
    if (m_icon)
        m_icon->setIcon(trayGlyph(panelLook(*m_settings)));
}

bool TrayStatusItem::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        followPanel();
    return false;
}
