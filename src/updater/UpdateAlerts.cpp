#include "updater/UpdateAlerts.h"

#include "l10n/L10n.h"

namespace {

QString above(const std::optional<QString> &notes) { return notes ? *notes + u"\n\n"_qs : QString(); }

} // namespace

namespace UpdateAlerts {

Alert offer(const QString &version, const std::optional<QString> &notes, const QString &current)
{
    return {L10n::t(u"Hay una versión nueva de Vellumora (%@)", version),
            above(notes)
                + L10n::t(u"Tienes la %@. Se instala sola en unos segundos y se vuelve a abrir.", current),
            {L10n::t(u"Actualizar"), L10n::t(u"Ahora no")}};
}

Alert managed(const QString &version, const std::optional<QString> &notes, const QString &current)
{
    return {L10n::t(u"Hay una versión nueva de Vellumora (%@)", version),
            above(notes)
                + L10n::t(u"Tienes la %@. Las nuevas llegan con las actualizaciones del sistema.", current),
            {L10n::t(u"Abrir la web"), L10n::t(u"Cerrar")}};
}

Alert upToDate(const QString &current)
{
    return {L10n::t(u"Tienes la última versión"), L10n::t(u"Vellumora %@ es la más reciente.", current)};
}

Alert notSigned()
{
    return {L10n::t(u"No se pudo comprobar la actualización"),
            L10n::t(u"La respuesta de la web no venía firmada por KLV, así que no se ha instalado nada.")};
}

Alert unreachable()
{
    return {L10n::t(u"No se pudo comprobar"),
            L10n::t(u"No hay conexión con la web de Vellumora. Prueba más tarde.")};
}

Alert failed(const QString &message)
{
    return {L10n::t(u"No se pudo actualizar"),
            L10n::t(u"%@\n\nPuedes descargarla a mano desde la web.", message),
            {L10n::t(u"Abrir la web"), L10n::t(u"Cerrar")}};
}

} // namespace UpdateAlerts
