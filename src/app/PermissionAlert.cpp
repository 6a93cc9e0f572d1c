#include "app/PermissionAlert.h"

#include "l10n/L10n.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>

namespace {

QMessageBox *makeBox(const std::function<void()> &openSettings)
{
    auto *box = new QMessageBox(QMessageBox::Warning, QStringLiteral("Vellumora"),
                                L10n::t(u"Vellumora necesita permiso de Grabación de pantalla"));
    box->setInformativeText(
        L10n::t(u"Actívalo en Ajustes del Sistema → Privacidad y seguridad → Grabación de pantalla y "
                u"audio del sistema, y vuelve a abrir Vellumora."));
    auto *settings = box->addButton(L10n::t(u"Abrir Ajustes"), QMessageBox::AcceptRole);
    box->addButton(L10n::t(u"Cancelar"), QMessageBox::RejectRole);
    box->setDefaultButton(settings); // whichever comes first on this desktop
    QObject::connect(settings, &QAbstractButton::clicked, box, openSettings);
    box->setAttribute(Qt::WA_DeleteOnClose);
    return box;
}

} // namespace

PermissionAlert::PermissionAlert(std::function<void()> openSettings) : m_openSettings(std::move(openSettings))
{}

PermissionAlert::~PermissionAlert() { delete m_box; }

void PermissionAlert::show()
{
    if (!m_box)
        m_box = makeBox(m_openSettings);
    m_box->show();
    m_box->raise();
    m_box->activateWindow();
}
