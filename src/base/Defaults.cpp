#include "base/Defaults.h"

#include <QLockFile>
#include <QSettings>

#include <chrono>

using namespace std::chrono_literals;

namespace {

// Whoever is killed while it writes may leave a lock that does not say whose it is.
// Qt would wait thirty seconds for that one; who lives holds it for milliseconds, and
// cannot be robbed of it, because the system knows.
void removeDeadLock(const QSettings &settings)
{
    QLockFile lock(settings.fileName() + QStringLiteral(".lock"));
    lock.setStaleLockTime(500ms);
    (void)lock.tryLock(1s); // else Qt has its say
}

} // namespace

namespace Defaults {

QVariant value(QStringView key)
{
    return QSettings(QStringLiteral("Vellumora"), QStringLiteral("Vellumora")).value(key.toString());
}

void setValue(QStringView key, const QVariant &value)
{
    QSettings settings(QStringLiteral("Vellumora"), QStringLiteral("Vellumora"));
    removeDeadLock(settings);
    settings.setValue(key.toString(), value);
    settings.sync();
}

void remove(QStringView key)
{
    QSettings settings(QStringLiteral("Vellumora"), QStringLiteral("Vellumora"));
    removeDeadLock(settings);
    settings.remove(key.toString());
    settings.sync();
}

} // namespace Defaults
