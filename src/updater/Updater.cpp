#include "updater/Updater.h"

#include "base/Log.h"
#include "updater/Version.h"

namespace Updater {

void check(Asked asked)
{
    Log::write(QStringLiteral("actualizacion: sin comprobar, versión %1 (%2)")
                   .arg(Version::current(),
                        asked == Asked::byUser ? QStringLiteral("a mano") : QStringLiteral("sola")));
}

} // namespace Updater
