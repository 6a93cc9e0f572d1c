#include "updater/UpdateWords.h"

#include "base/Log.h"
#include "l10n/L10n.h"

namespace UpdateWords {

void log(const QString &message) { Log::write(u"actualizacion: "_qs + visible(message)); }

QString couldNot(const QString &why) { return L10n::t(u"No se pudo descargar o instalar (%@).", why); }

QString visible(QString text)
{
    return text.replace(u'\n', u'␤').replace(u'\r', u'␍').replace(QChar(0), u'␀');
}

} // namespace UpdateWords
