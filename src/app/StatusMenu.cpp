#include "app/StatusMenu.h"

#include "base/LiteralText.h"
#include "l10n/L10n.h"
#include "platform/StatusItem.h"

#include <QKeyEvent>

#include <algorithm>

StatusMenu::StatusMenu(const Actions &actions)
{
    const auto add = [this](QStringView title, const std::function<void()> &action) {
        QAction *item = m_menu.addAction(L10n::t(title));
        QObject::connect(item, &QAction::triggered, &m_menu, action);
        return item;
    };
    m_capture = add(u"Capturar", actions.capture);
    m_menu.addSeparator();
    add(u"Ajustes…", actions.settings)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    add(u"Acerca de Vellumora…", actions.about);
    add(u"Web de Vellumora", actions.web);
    add(u"Buscar actualizaciones…", actions.updates);
    m_menu.addSeparator();
    add(u"Salir de Vellumora", actions.quit)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
}

void StatusMenu::Menu::keyPressEvent(QKeyEvent *event)
{
    const QKeySequence pressed(event->keyCombination());
    const auto all = actions();
    const auto meant = std::ranges::find_if(all, [&](const QAction *action) {
        return !action->shortcut().isEmpty() && action->shortcut() == pressed;
    });
    if (meant == all.end())
        return QMenu::keyPressEvent(event);
    close();
    (*meant)->trigger();
}

void StatusMenu::showIn(StatusItem &item) { item.show(m_menu); }

void StatusMenu::setShortcut(const QString &display)
{
    const QString title = L10n::t(u"Capturar");
    m_capture->setText(display.isEmpty() ? title : title + QStringLiteral("   ") + literalText(display));
}
