#include "platform/freedesktop/SessionBus.h"

#include <QFile>
#include <QString>

namespace {

constexpr const char *addressVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr const char *noBus = "disabled:";

} // namespace

namespace SessionBus {

bool present()
{
    const QByteArray address = qgetenv(addressVariable);
    if (!address.isEmpty())
        return address != noBus;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && QFile::exists(runtime + QStringLiteral("/bus"));
}

void doNotStartOne()
{
    if (!present())
        qputenv(addressVariable, noBus);
}

} // namespace SessionBus
