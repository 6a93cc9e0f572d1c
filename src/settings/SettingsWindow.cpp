#include "settings/SettingsWindow.h"

#include "hotkey/Prefs.h"
#include "l10n/L10n.h"

#include <QFormLayout>
#include <QLabel>

SettingsWindow::SettingsWindow(const KeyboardLayout &layout) : m_layout(layout), m_shortcut(new QLabel(this))
{
    setWindowTitle(L10n::t(u"Ajustes de Vellumora"));
    auto *rows = new QFormLayout(this);
    rows->setContentsMargins(24, 20, 24, 20);
    rows->setHorizontalSpacing(16);
    rows->addRow(L10n::t(u"Atajo para capturar"), m_shortcut);
}

void SettingsWindow::present()
{
    m_shortcut->setText(Prefs::shortcut().display(m_layout));
    show();
    raise();
    activateWindow();
}
