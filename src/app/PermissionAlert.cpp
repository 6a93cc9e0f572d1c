#include "app/PermissionAlert.h"

#include "l10n/L10n.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

namespace PermissionAlert {

void show(const std::function<void()> &openSettings)
{
    static QPointer<QMessageBox> open;
    if (!open) {
        open = new QMessageBox(QMessageBox::Warning, QStringLiteral("Vellumora"),
                               L10n::t(u"Vellumora necesita permiso de Grabación de pantalla"));
        open->setInformativeText(
            L10n::t(u"Actívalo en Ajustes del Sistema → Privacidad y seguridad → Grabación de pantalla y "
                    u"audio del sistema, y vuelve a abrir Vellumora."));
        auto *settings = open->addButton(L10n::t(u"Abrir Ajustes"), QMessageBox::AcceptRole);
        open->addButton(L10n::t(u"Cancelar"), QMessageBox::RejectRole);
        open->setDefaultButton(settings); // whichever comes first on this desktop
        QObject::connect(settings, &QAbstractButton::clicked, open, openSettings);
        open->setAttribute(Qt::WA_DeleteOnClose);
    }
    open->show();
    open->raise();
    open->activateWindow();
}

} // namespace PermissionAlert
