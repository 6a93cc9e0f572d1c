#include "base/Defaults.h"

#include <QSettings>

namespace Defaults {

QVariant value(QStringView key)
{
    return QSettings(QStringLiteral("Vellumora"), QStringLiteral("Vellumora")).value(key.toString());
}

void setValue(QStringView key, const QVariant &value)
{
    QSettings settings(QStringLiteral("Vellumora"), QStringLiteral("Vellumora"));
    settings.setValue(key.toString(), value);
    settings.sync();
}

void remove(QStringView key)
{
    QSettings settings(QStringLiteral("Vellumora"), QStringLiteral("Vellumora"));
    settings.remove(key.toString());
    settings.sync();
}

} // namespace Defaults
